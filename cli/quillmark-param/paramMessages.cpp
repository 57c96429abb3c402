#include "cli/quillmark-param/paramMessages.h"

#include <cstdio>

int failWith(const char* name, std::string_view text) {
    (void)std::fflush(stdout); // one message of the reader goes there, and it comes first
    std::fprintf(stderr, "quillmark-param: '%s': %.*s\n", name, static_cast<int>(text.size()),
                 text.data());
    return kParamFailed;
}

void warnOf(const char* name, std::string_view text) {
    std::fprintf(stderr, "quillmark-param: warning: '%s': %.*s\n", name,
                 static_cast<int>(text.size()), text.data());
}
