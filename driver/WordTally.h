#pragma once

#include "commands/Block.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// How often something was met, and where first: the line (0 for never) and, when it is not that of
/// the main program, the file.
struct Tally {
    long count = 0;
    long firstLine = 0;
    std::string firstFile = {};

    /// When memory is exhausted, the file's name is "?".
    void Add(const Block::Place& place) noexcept;
};

/// Counts words, the first kMaxWords different ones apart and all others together: its memory is
/// bounded whatever the program holds.
class WordTally {
public:
    static constexpr std::size_t kMaxWords = 2000;

    using Entry = std::pair<const std::string, Tally>;

    /// Counts one occurrence. When memory is exhausted, a new word counts among the others.
    void Add(std::string_view word, const Block::Place& place) noexcept;
    /// The words that are counted apart, most frequent first, then in the order of their first
    /// lines, then by their bytes. Valid until the next Add. Needs no memory.
    [[nodiscard]] std::span<const Entry* const> MostFrequentFirst() noexcept;
    /// Occurrences of all words, and of those that are not counted apart.
    [[nodiscard]] long Total() const noexcept { return m_total; }
    [[nodiscard]] long Others() const noexcept { return m_others; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>{}(text);
        }
    };
    [[nodiscard]] bool addNew(std::string_view word, const Block::Place& place) noexcept;

    std::unordered_map<std::string, Tally, Hash, std::equal_to<>> m_words;
    std::vector<const Entry*> m_order;
    long m_total = 0;
    long m_others = 0;
};
