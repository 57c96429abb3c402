#pragma once

#include "commands/WordCode.h"

/// The letters of a word whose value does not matter: "H", ",C", "CHR".
class WordAddress {
public:
    /// `text` is not empty. Throws std::bad_alloc.
    explicit WordAddress(std::string_view text);

    [[nodiscard]] std::string_view Letters() const noexcept {
        return {m_letters.get(), m_letters.size()};
    }
    /// The first such word with its number, sign and fraction; none when there is none.
    [[nodiscard]] std::optional<WordPlace> FindNumber(char* block, WordRule rule,
                                                      char separator) const noexcept;
    /// The same for a word with any value at all, "CHR=R1" or "A#1".
    [[nodiscard]] std::optional<WordPlace> FindValue(char* block, WordRule rule,
                                                     char separator) const noexcept;

private:
    [[nodiscard]] std::optional<WordPlace> find(char* block, WordRule rule, char separator,
                                                bool takesAnyValue) const noexcept;

    TextCopy m_letters;
};
