#include "cli/standardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

void occupyStandardDescriptors() noexcept {
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) {
        (void)close(descriptor);
    }
}
