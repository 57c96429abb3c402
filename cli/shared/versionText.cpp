#include "cli/shared/versionText.h"

#include "include/quillmark.h"

void printVersion(std::FILE* stream, const char* program) noexcept {
    char banner[64] = "";
    int length = 0;
    gtvers(banner, &length);
    std::fprintf(stream, "%s " QUILLMARK_VERSION "\n%.*s\n", program, length, banner);
}
