#include "cli/shared/fileError.h"

#include "cli/shared/printText.h"

#include <cstdio>

void printFileError(const char* program, std::string_view name, std::string_view text) noexcept {
    (void)std::fflush(stdout); // one message of the reader goes there, and it comes first
    std::fprintf(stderr, "%s: '", program);
    printText(stderr, name);
    std::fputs("': ", stderr);
    printText(stderr, text);
    std::fputc('\n', stderr);
}
