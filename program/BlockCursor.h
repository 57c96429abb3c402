#pragma once

#include <cstddef>
#include <string_view>

/// Walks over the words of a block for a grammar. Every take passes over blanks first.
class BlockCursor {
public:
    /// `text` must outlive the cursor. Where blanks part words, a keyword ends where the name ends
    /// in which it stands.
    BlockCursor(std::string_view text, bool blanksPartWords) noexcept
        : m_text(text), m_blanksPartWords(blanksPartWords) {}

    [[nodiscard]] std::size_t position() const noexcept { return m_at; }
    [[nodiscard]] std::string_view rest() const noexcept { return m_text.substr(m_at); }
    void moveTo(std::size_t position) noexcept { m_at = position; }
    void advance(std::size_t count) noexcept { m_at += count; }

    void skipBlanks() noexcept;
    /// The present character; 0 at the end.
    [[nodiscard]] char peek() const noexcept { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    /// Whether nothing but blanks is left.
    [[nodiscard]] bool isAtEnd() noexcept;
    [[nodiscard]] bool take(char c) noexcept;
    [[nodiscard]] bool takeKeyword(std::string_view word) noexcept;
    /// The letters, digits and underscores here, the first of them no digit; empty for none.
    [[nodiscard]] std::string_view takeName() noexcept;
    /// The digits here; empty for none.
    [[nodiscard]] std::string_view takeDigits() noexcept;

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_blanksPartWords;
};
