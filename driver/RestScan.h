#pragma once

#include "commands/Block.h"
#include "commands/BlockNote.h"
#include "driver/Warning.h"

#include <array>
#include <cstddef>
#include <string_view>

class PassedWords;

/// What decides how the rest of a block is judged.
struct RestContext {
    const PassedWords& passed;
    char separator = '\0'; ///< the dialect's decimal one; NUL for none
    bool isLathe = false;
    bool hasMoved = false; ///< the block wrote a movement
};

/// Looks through the rest of a block for what a control would have obeyed. To be made before words
/// without effect are dropped, since a code of theirs takes the rest along; they themselves are no
/// danger. The block must not change while it is asked.
class RestScan {
public:
    RestScan(const Block& block, const RestContext& context) noexcept;

    /// The first word of that danger; empty when there is none, and for the kinds that are none of
    /// a rest.
    [[nodiscard]] std::string_view WordOf(Warning::Kind kind) const noexcept {
        return m_words[static_cast<std::size_t>(kind)];
    }
    /// How that word stands in the rest: of "X10+5" only "+5" does.
    [[nodiscard]] std::string_view RestOf(Warning::Kind kind) const noexcept {
        return m_rests[static_cast<std::size_t>(kind)];
    }
    [[nodiscard]] bool Has(BlockNote note) const noexcept {
        return m_notes[static_cast<std::size_t>(note)];
    }

private:
    void judgeWord(std::string_view word) noexcept;
    void judgeFragment(std::string_view fragment, std::string_view before) noexcept;
    [[nodiscard]] std::size_t findBehindNumber(std::string_view key) const noexcept;
    [[nodiscard]] bool isUnreadAxis(std::string_view word) const noexcept;
    void keep(Warning::Kind kind, std::string_view word, std::string_view rest) noexcept;

    std::string_view m_text; // of the block
    const RestContext& m_context;
    std::array<std::string_view, static_cast<std::size_t>(Warning::Kind::kCount)> m_words;
    std::array<std::string_view, static_cast<std::size_t>(Warning::Kind::kCount)> m_rests;
    std::array<bool, static_cast<std::size_t>(BlockNote::kCount)> m_notes = {};
};
