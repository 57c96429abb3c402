#pragma once

#include "commands/AvailableCommands.h"
#include "commands/ByteSet.h"

#include <cstdint>
#include <vector>

/// The registry of commands in the order in which they are tried, arranged so that only those are
/// tried which a block can hold: the first byte of their word occurs and, where the word is one
/// letter with a number, that number stands behind it. A dialect with many commands thus costs no
/// more than one with few. Made after the registry was sorted; does not own the commands.
class CommandIndex {
public:
    explicit CommandIndex(const AvailableCommands& commands);

    /// Has every command that the block can hold scan it, until the block is empty. `bytes` are
    /// those of the block, perhaps with others. Returns the first non-zero code, or 0.
    int scanNC(char* block, const ByteSet& bytes);

private:
    // Bit i of a set stands for m_commands[i].
    using Set = std::vector<std::uint64_t>;
    static constexpr std::size_t kBits = 64;
    static constexpr std::size_t kNumberClasses = 64;

    struct FirstByte {
        char byte = '\0';
        Set any;                   // words of several letters or without a number
        std::vector<Set> byNumber; // letter with a number, by the number's class
    };

    [[nodiscard]] static std::size_t numberClass(int number) noexcept {
        return static_cast<std::size_t>(number) % kNumberClasses;
    }
    FirstByte& rowOf(char byte);
    void select(const char* block, const ByteSet& bytes) noexcept;
    void add(const Set& set) noexcept;

    std::vector<Command*> m_commands;
    std::vector<FirstByte> m_rows;
    ByteSet m_firstBytes; // of all rows
    Set m_selected;
};
