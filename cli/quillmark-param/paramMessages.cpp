#include "cli/quillmark-param/paramMessages.h"

#include "cli/shared/fileError.h"
#include "cli/shared/printText.h"

#include <cstdio>

int failWith(const char* name, std::string_view text) {
    printFileError("quillmark-param", name, text);
    return kParamFailed;
}

void warnOf(const char* name, std::string_view text) {
    std::fputs("quillmark-param: warning: '", stderr);
    printText(stderr, name);
    std::fputs("': ", stderr);
    printText(stderr, text);
    (void)std::fputc('\n', stderr);
}
