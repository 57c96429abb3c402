#include "driver/StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

StandardDescriptors::StandardDescriptors(Output output) noexcept {
    for (int descriptor = 0; descriptor < static_cast<int>(m_isOurs.size()); ++descriptor) {
        if (fcntl(descriptor, F_GETFD) != -1) {
            continue;
        }
        // A folder cannot be written, not even through /dev/stdout.
        const bool fails = descriptor == STDOUT_FILENO && output == Output::kFails;
        // The lowest free descriptor, and those below this one are in use by now.
        const int opened = fails ? open("/", O_RDONLY) : open("/dev/null", O_RDWR);
        m_isOurs[static_cast<std::size_t>(descriptor)] = opened == descriptor;
        if (opened != descriptor) {
            (void)close(opened);
            return;
        }
    }
}

StandardDescriptors::~StandardDescriptors() {
    for (int descriptor = 0; descriptor < static_cast<int>(m_isOurs.size()); ++descriptor) {
        if (m_isOurs[static_cast<std::size_t>(descriptor)]) {
            (void)close(descriptor);
        }
    }
}
