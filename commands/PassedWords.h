#pragma once

#include "commands/WordAddress.h"
#include "commands/WordCode.h"
#include "commands/WordFilter.h"

#include <string_view>
#include <vector>

/// The words of a dialect that no command takes, and what becomes of their blocks. Filled by the
/// parameter file; `rest` is what is left of a block, and `separator` the dialect's decimal one.
class PassedWords {
public:
    struct List {
        std::vector<WordCode> codes;
        std::vector<WordAddress> addresses;

        [[nodiscard]] bool IsEmpty() const noexcept { return codes.empty() && addresses.empty(); }
    };

    List noEffect;     ///< known, and nothing for the path
    List own;          ///< the words of their block are their own
    List notConverted; ///< a block with one ends the conversion
    List dwell; ///< codes, and the words that are theirs in their block, whatever else these mean
    WordRule rule = WordRule::kPlain;

    /// Has these lists before the block is recognised at all: to be called when they are complete.
    /// Throws std::bad_alloc.
    void BuildFilter();

    /// False when certainly neither a word of its own nor one that is not converted is in `rest`.
    [[nodiscard]] bool MayHold(const char* rest) const noexcept { return m_filter.MayHold(rest); }
    /// The word for which the block is not to be converted; empty when there is none. Words that
    /// belong to a code of their own, or to a dwell, are none.
    [[nodiscard]] std::string_view FindNotConverted(char* rest, char separator) const noexcept;
    /// Drops the whole rest when it holds a code whose words are its own. Tells whether it did.
    bool DropOwn(char* rest) const noexcept;
    /// Drops the words without effect: all of the rest when a code of theirs is in it. To be called
    /// when all others have taken their words.
    void DropWithoutEffect(char* rest, char separator) const noexcept;

    /// Whether `word`, with its number, is one without effect itself.
    [[nodiscard]] bool HasNoEffect(std::string_view word, char separator) const noexcept;

private:
    WordFilter m_filter; // of `own` and `notConverted`
};
