#pragma once

#include "commands/TextCopy.h"

#include <optional>

/// What the word of a command is, the one rule for it: a text and, mostly, a number behind it
/// ("G01", "M30"). The recogniser asks it where a word stands, and the index of commands asks it
/// which ones a block can hold.
class CommandWord {
public:
    /// Stores a copy of `text` unless it is null (the old one then stays), and `number` in any
    /// case; -1 means that the word has no number. When memory is exhausted the text is null, and
    /// nothing is this word.
    void Set(const char* text, int number) noexcept;

    [[nodiscard]] const TextCopy& Text() const noexcept { return m_text; }
    [[nodiscard]] int Number() const noexcept { return m_number; }

    /// The first place at or after `from` where the text begins a word of `block`; null when there
    /// is none.
    [[nodiscard]] char* Find(char* block, char* from) const noexcept;
    /// Whether a text found is this word when what counts as its digits stands from `digits` up to
    /// `end`: any digits or none for a word without number, else digits of the same value.
    [[nodiscard]] bool HasDigits(const char* digits, const char* end) const noexcept;

    /// The number that stands behind a word's text as plain digits, without anything between; none
    /// when no digit follows.
    [[nodiscard]] static std::optional<int> NumberAt(const char* digits) noexcept;
    /// Whether the word is one letter with a number, so that NumberAt behind the letter tells
    /// whether it stands there.
    [[nodiscard]] bool IsLetterWithNumber() const noexcept {
        return m_text.size() == 1 && m_number >= 0;
    }

private:
    TextCopy m_text;
    int m_number = -1;
};
