#pragma once

#include <string_view>

/// What a program that computes asks about the words of its dialect.
class Vocabulary {
public:
    virtual ~Vocabulary() = default;

    /// Whether a key of the dialect knows this word: letters alone for an address, letters with
    /// digits for a code ("G1" and "G01" are the same).
    [[nodiscard]] virtual bool isKnown(std::string_view word) const = 0;
    /// Whether the G code of this number follows a part of the program, told by the numbers of its
    /// blocks; it is given once more behind that.
    [[nodiscard]] virtual bool followsBlocks(long /*number*/) const noexcept { return false; }
    /// The implied decimal places of an address, where numbers have no decimal separator; else 0.
    [[nodiscard]] virtual int impliedDecimals(std::string_view address) const = 0;
    /// The decimal separator; 0 when there is none.
    [[nodiscard]] virtual char separator() const = 0;
};
