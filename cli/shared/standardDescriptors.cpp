#include "cli/shared/standardDescriptors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

struct Stand {
    int descriptor;
    const char* path;
    int flags;
};

// A folder cannot be written, not even through /dev/stdout: what would be lost is noticed.
constexpr Stand kStands[] = {
    {STDIN_FILENO, "/dev/null", O_RDONLY},
    {STDOUT_FILENO, "/", O_RDONLY},
    {STDERR_FILENO, "/dev/null", O_WRONLY},
};

} // namespace

void occupyStandardDescriptors() noexcept {
    for (const Stand& stand : kStands) {
        // The lowest free descriptor is this one, since those below it are in use by now.
        if (fcntl(stand.descriptor, F_GETFD) == -1 && open(stand.path, stand.flags) < 0) {
            return;
        }
    }
}

bool flushStandardOutput(const char* program) noexcept {
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    std::fprintf(stderr, "%s: standard output cannot be written: %s\n", program,
                 std::strerror(errno != 0 ? errno : EIO));
    return false;
}
