#pragma once

#include "commands/TextCopy.h"
#include "commands/WordCode.h"
#include "commands/ncNumber.h"
#include "commands/wordMatcher.h"

#include <optional>
#include <string>
#include <string_view>

/// What the word of a command is, the one rule for it: a text and, mostly, a number behind it
/// ("G01", "M30"). The recogniser asks it where a word stands, and the index of commands asks it
/// which ones a block can hold.
class CommandWord {
public:
    /// Stores a copy of `text` unless it is null (the old one then stays), and `number` in any
    /// case; -1 means that the word has no number. When memory is exhausted the text is null, and
    /// nothing is this word.
    void Set(const char* text, int number) noexcept;
    /// The same for a code with letters, perhaps with a fraction: "G59.1". Throws std::bad_alloc.
    void Set(const WordCode& code);

    [[nodiscard]] const TextCopy& Text() const noexcept { return m_text; }
    [[nodiscard]] int Number() const noexcept { return m_number; }
    [[nodiscard]] const std::string& Fraction() const noexcept { return m_fraction; }

    /// How words are told from other text; kPlain at first.
    void SetRule(WordRule rule) noexcept { m_rule = rule; }

    /// The first place at or after `from` where the text begins a word of `block`; null when there
    /// is none. `token` is the block at first, and for later calls what the one before left in it.
    [[nodiscard]] char* Find(char* block, char* from, const char*& token) const noexcept {
        return findWordBy(m_rule, block, from, m_text, token);
    }
    /// Whether a text found is this word when what counts as its digits stands from `digits` up to
    /// `end`: any digits or none for a word without number, else digits of the same value. By the
    /// stricter rules the word must end there, too, or behind its fraction.
    [[nodiscard]] bool HasDigits(const char* digits, const char* end) const noexcept {
        return hasValue(digits, end) &&
               (m_rule == WordRule::kPlain ? m_fraction.empty()
                                           : isWhole(digits, end) && fractionAt(end) == m_fraction);
    }
    /// The end of the word: behind the fraction that stands at the end of its digits, or there.
    [[nodiscard]] char* BehindFraction(char* end) const noexcept {
        return m_fraction.empty() ? end : skipDigits(end + 1);
    }

    /// The number that stands behind a word's text as plain digits, without anything between; none
    /// when no digit follows.
    [[nodiscard]] static std::optional<int> NumberAt(const char* digits) noexcept;
    /// Whether the word is one letter with a number, so that NumberAt behind the letter tells
    /// whether it stands there.
    [[nodiscard]] bool IsLetterWithNumber() const noexcept {
        return m_text.size() == 1 && m_number >= 0;
    }

private:
    [[nodiscard]] bool hasValue(const char* digits, const char* end) const noexcept {
        return m_number == -1 || (end != digits && readCommandNumber(digits) == m_number);
    }
    [[nodiscard]] bool isWhole(const char* digits, const char* end) const noexcept;
    [[nodiscard]] static std::string_view fractionAt(const char* end) noexcept;

    TextCopy m_text;
    int m_number = -1;
    std::string m_fraction; // without zeros at its end; empty: none
    WordRule m_rule = WordRule::kPlain;
};
