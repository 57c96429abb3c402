#include "softCommon/CStringUtil/fixedField.h"

#include <cstdio>
#include <cstring>

void s2fcpy(char* field, const char* source, unsigned width) noexcept {
    const std::size_t copied = source == nullptr ? 0 : strnlen(source, width);
    if (copied > 0) {
        std::memcpy(field, source, copied);
    }
    std::memset(field + copied, ' ', width - copied);
}

char* s2ccpy(const char* field, int width) noexcept {
    char* const copy = width <= 0 ? strdup("") : strndup(field, static_cast<std::size_t>(width));
    if (copy == nullptr) {
        std::perror("s2ccpy");
    }
    return copy;
}
