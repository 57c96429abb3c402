#include "cli/paramMessages.h"

#include <cstdio>

int failWith(const char* name, const std::string& text) {
    (void)std::fflush(stdout); // one message of the reader goes there, and it comes first
    std::fprintf(stderr, "quillmark-param: '%s': %s\n", name, text.c_str());
    return kParamFailed;
}

void warnOf(const char* name, const std::string& text) {
    std::fprintf(stderr, "quillmark-param: warning: '%s': %s\n", name, text.c_str());
}
