#pragma once

#include "commands/AvailableCommands.h"
#include "commands/ByteSet.h"

#include <bit>
#include <cstdint>
#include <vector>

/// The registry of commands in the order in which they are tried, arranged by the first byte of
/// their words: of a dialect with many commands only those are visited whose first byte occurs on
/// the block. Made once, after the registry was sorted; does not own the commands.
class CommandIndex {
public:
    explicit CommandIndex(const AvailableCommands& commands);

    /// Prepares the visit of a block that holds no other bytes than `bytes`.
    void Select(const ByteSet& bytes) noexcept;

    /// Calls `visit(command)` for each selected command, in the registry's order, until it returns
    /// a non-zero code; returns that code or 0.
    template<class Visit>
    int ForEachSelected(Visit visit) const {
        for (std::size_t word = 0; word < m_selected.size(); ++word) {
            for (std::uint64_t bits = m_selected[word]; bits != 0; bits &= bits - 1) {
                const auto bit = static_cast<std::size_t>(std::countr_zero(bits));
                if (const int code = visit(*m_commands[word * kBits + bit]); code != 0) {
                    return code;
                }
            }
        }
        return 0;
    }

private:
    static constexpr std::size_t kBits = 64;

    struct FirstByte {
        char byte;
        std::vector<std::uint64_t> members; // bit i stands for m_commands[i]
    };

    std::vector<Command*> m_commands;
    std::vector<FirstByte> m_firstBytes;
    std::vector<std::uint64_t> m_selected;
};
