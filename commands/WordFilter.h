#pragma once

#include "commands/WordAddress.h"
#include "commands/WordCode.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string_view>
#include <vector>

/// Tells in one walk over a block that none of many words stands in it, so that a long list costs
/// most blocks no more than a short one.
class WordFilter {
public:
    /// Throws std::bad_alloc.
    void Add(const WordCode& code);
    void Add(const WordAddress& address) { addLetters(address.Letters()); }

    /// False only when certainly none of the words is in `block`.
    [[nodiscard]] bool MayHold(const char* block) const noexcept;

private:
    static constexpr std::size_t kNumberClasses = 128;
    using Numbers = std::bitset<kNumberClasses>;

    void addLetters(std::string_view letters) noexcept;
    [[nodiscard]] static std::uint8_t indexOf(char c) noexcept {
        return static_cast<std::uint8_t>(c);
    }

    // Of a letter: 0 for none of the words, 1 for any word, else a place in m_numbers, plus two.
    std::array<std::uint8_t, 256> m_rows{};
    std::vector<Numbers> m_numbers; // of codes of one letter, by their class
};
