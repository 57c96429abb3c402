#include "program/BlockCursor.h"

#include "softCommon/CStringUtil/asciiBytes.h"

void BlockCursor::skipBlanks() noexcept {
    while (peek() == ' ' || peek() == '\t') {
        ++m_at;
    }
}

bool BlockCursor::isAtEnd() noexcept {
    skipBlanks();
    return m_at >= m_text.size();
}

bool BlockCursor::take(char c) noexcept {
    skipBlanks();
    if (peek() != c || c == '\0') {
        return false;
    }
    ++m_at;
    return true;
}

bool BlockCursor::takeKeyword(std::string_view word) noexcept {
    skipBlanks();
    if (!rest().starts_with(word)) {
        return false;
    }
    const std::size_t behind = m_at + word.size();
    if (m_blanksPartWords && behind < m_text.size() && isNameByte(m_text[behind])) {
        return false;
    }
    m_at = behind;
    return true;
}

std::string_view BlockCursor::takeName() noexcept {
    skipBlanks();
    if (isDigitByte(peek())) {
        return {};
    }
    const std::size_t first = m_at;
    while (isNameByte(peek())) {
        ++m_at;
    }
    return m_text.substr(first, m_at - first);
}

std::string_view BlockCursor::takeDigits() noexcept {
    skipBlanks();
    const std::size_t first = m_at;
    while (isDigitByte(peek())) {
        ++m_at;
    }
    return m_text.substr(first, m_at - first);
}
