#include "cli/shared/flushStandardOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

bool flushStandardOutput(const char* program) noexcept {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    std::fprintf(stderr, "%s: standard output cannot be written: %s\n", program,
                 std::strerror(errno != 0 ? errno : EIO));
    return false;
}
