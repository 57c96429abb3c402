#pragma once

#include <cstddef>
#include <string_view>

/// Walks over the text of an expression. Where blanks have no meaning it passes them over by
/// itself, so that the rest of the parser does not know of them.
class TextCursor {
public:
    /// `text` must outlive the cursor.
    TextCursor(std::string_view text, bool anyCase, bool blanksInside) noexcept;

    /// The present character, as a capital where case does not count; 0 at the end.
    [[nodiscard]] char peek() const noexcept;
    /// The present character as it stands; 0 at the end.
    [[nodiscard]] char peekRaw() const noexcept {
        return m_at < m_text.size() ? m_text[m_at] : '\0';
    }
    [[nodiscard]] bool isAtEnd() const noexcept { return m_at >= m_text.size(); }
    void advance() noexcept;
    void skipBlanks() noexcept;
    /// Passes over `c`, which is not 0, or over `word`, when it stands here.
    [[nodiscard]] bool take(char c) noexcept;
    [[nodiscard]] bool take(std::string_view word) noexcept;

    [[nodiscard]] std::size_t column() const noexcept { return m_at + 1; } ///< from 1
    /// Behind the last character passed over that was no blank.
    [[nodiscard]] std::size_t end() const noexcept { return m_end; }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    bool m_anyCase;
    bool m_blanksInside;
};
