#include "apt/StatementText.h"

#include <charconv>

StatementText& StatementText::add(int value) noexcept {
    const auto [last, error] = std::to_chars(end(), limit(), value);
    if (error == std::errc{}) {
        m_length = static_cast<std::size_t>(last - m_text.data());
    }
    return *this;
}
