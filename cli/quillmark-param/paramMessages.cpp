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
    std::fprintf(stderr, "': %.*s\n", static_cast<int>(text.size()), text.data());
}
