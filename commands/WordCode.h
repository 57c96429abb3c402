#pragma once

#include "commands/TextCopy.h"
#include "commands/WordRule.h"

#include <optional>
#include <string>
#include <string_view>

/// A word's bytes in a block.
struct WordPlace {
    char* begin;
    char* end;

    [[nodiscard]] std::string_view Text() const noexcept {
        return {begin, static_cast<std::size_t>(end - begin)};
    }
};

/// A code that is known by its spelling alone, "G64", "G5.1" or "MSG". Numbers are compared by
/// their value, so "G05.1" is G5.1, and letters alone are the whole word.
class WordCode {
public:
    /// Throws std::bad_alloc.
    explicit WordCode(std::string_view text);

    /// Without letters nothing is this code.
    [[nodiscard]] bool HasLetters() const noexcept { return !m_letters.empty(); }
    /// Whether it can be a code of movements and modes: a letter, then letters and digits.
    [[nodiscard]] bool IsWord() const noexcept;
    [[nodiscard]] std::string_view Letters() const noexcept {
        return {m_letters.get(), m_letters.size()};
    }
    [[nodiscard]] bool HasNumber() const noexcept { return m_number != -1; }
    [[nodiscard]] int Number() const noexcept { return m_number; } ///< without a fraction
    /// The digits behind the point, without zeros at their end; empty when there are none.
    [[nodiscard]] const std::string& Fraction() const noexcept { return m_fraction; }
    /// The one way of writing it, without the zeros that do not count.
    [[nodiscard]] std::string Spelling() const;
    /// The first one in the block; none when there is no such word.
    [[nodiscard]] std::optional<WordPlace> FindIn(char* block, WordRule rule) const noexcept;

private:
    [[nodiscard]] char* endAt(char* digits, bool isNameWhole) const noexcept;

    TextCopy m_letters;
    int m_number = -1; // -1: none
    std::string m_fraction;
};
