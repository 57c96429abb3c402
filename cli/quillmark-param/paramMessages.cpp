#include "cli/quillmark-param/paramMessages.h"

#include "cli/shared/printText.h"

#include <cstdio>

int failWith(const char* name, std::string_view text) {
    (void)std::fflush(stdout); // one message of the reader goes there, and it comes first
    std::fputs("quillmark-param: '", stderr);
    printText(stderr, name);
    std::fputs("': ", stderr);
    printText(stderr, text);
    std::fputc('\n', stderr);
    return kParamFailed;
}

void warnOf(const char* name, std::string_view text) {
    std::fputs("quillmark-param: warning: '", stderr);
    printText(stderr, name);
    std::fprintf(stderr, "': %.*s\n", static_cast<int>(text.size()), text.data());
}
