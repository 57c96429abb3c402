#include "softCommon/CStringUtil/fixedField.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

void s2fcpy(char* field, const char* source, unsigned width) noexcept {
    const std::size_t copied = source == nullptr ? 0 : strnlen(source, width);
    if (copied > 0) {
        std::memcpy(field, source, copied);
    }
    std::memset(field + copied, ' ', width - copied);
}

char* s2ccpy(const char* field, int width) noexcept {
    const auto size = width > 0 ? static_cast<std::size_t>(width) : 0;
    auto* const copy = static_cast<char*>(std::calloc(size + 1, 1));
    if (copy == nullptr) {
        std::perror("s2ccpy");
    } else if (size > 0) {
        std::memcpy(copy, field, strnlen(field, size));
    }
    return copy;
}
