#include "commands/TextCopy.h"

#include <cstring>
#include <new>

TextCopy copyText(const char* text) noexcept {
    if (text == nullptr) {
        return nullptr;
    }
    const std::size_t size = std::strlen(text) + 1;
    TextCopy copy(new (std::nothrow) char[size]);
    if (copy != nullptr) {
        std::memcpy(copy.get(), text, size);
    }
    return copy;
}
