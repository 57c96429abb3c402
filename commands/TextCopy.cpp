#include "commands/TextCopy.h"

#include <cstring>
#include <new>

TextCopy::TextCopy(const char* text) noexcept {
    if (text == nullptr) {
        return;
    }
    const std::size_t size = std::strlen(text);
    m_text.reset(new (std::nothrow) char[size + 1]);
    if (m_text != nullptr) {
        std::memcpy(m_text.get(), text, size + 1);
        m_size = size;
        m_front = m_text[0];
    }
}
