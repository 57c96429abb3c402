#include "apt/StatementText.h"

#include <algorithm>
#include <charconv>
#include <cstring>

StatementText& StatementText::add(std::string_view text) noexcept {
    const std::size_t size = std::min(text.size(), m_text.size() - m_length);
    std::memcpy(end(), text.data(), size);
    m_length += size;
    return *this;
}

StatementText& StatementText::add(double value, int width, int decimals) noexcept {
    char* const first = end();
    const auto [last, error] =
        std::to_chars(first, limit(), value, std::chars_format::fixed, decimals);
    if (error != std::errc{}) {
        return *this;
    }
    const auto length = static_cast<std::size_t>(last - first);
    const std::size_t padding =
        std::min(static_cast<std::size_t>(width) -
                     std::min<std::size_t>(length, static_cast<std::size_t>(width)),
                 m_text.size() - m_length - length);
    std::memmove(first + padding, first, length);
    std::memset(first, ' ', padding);
    m_length += padding + length;
    return *this;
}

StatementText& StatementText::add(int value) noexcept {
    const auto [last, error] = std::to_chars(end(), limit(), value);
    if (error == std::errc{}) {
        m_length = static_cast<std::size_t>(last - m_text.data());
    }
    return *this;
}
