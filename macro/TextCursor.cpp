#include "macro/TextCursor.h"

TextCursor::TextCursor(std::string_view text, bool anyCase, bool blanksInside) noexcept
    : m_text(text), m_anyCase(anyCase), m_blanksInside(blanksInside) {
    skipBlanks();
}

char TextCursor::peek() const noexcept {
    const char c = peekRaw();
    return m_anyCase && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

void TextCursor::advance() noexcept {
    m_end = ++m_at;
    if (m_blanksInside) {
        skipBlanks();
    }
}

void TextCursor::skipBlanks() noexcept {
    while (peekRaw() == ' ' || peekRaw() == '\t') {
        ++m_at;
    }
}

bool TextCursor::take(char c) noexcept {
    if (c == '\0' || peek() != c) {
        return false;
    }
    advance();
    return true;
}

bool TextCursor::take(std::string_view word) noexcept {
    const TextCursor start = *this;
    for (const char c : word) {
        if (!take(c)) {
            *this = start;
            return false;
        }
    }
    return true;
}
