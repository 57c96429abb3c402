#include "driver/openAnotherStream.h"

#include <cerrno>
#include <unistd.h>

std::FILE* openAnotherStream(int descriptor, const char* mode) noexcept {
    const int own = dup(descriptor);
    if (own < 0) {
        return nullptr;
    }
    std::FILE* const stream = fdopen(own, mode);
    if (stream == nullptr) {
        const int reason = errno;
        (void)close(own);
        errno = reason;
    }
    return stream;
}
