#pragma once

#include "commands/AvailableCommands.h"
#include "commands/Block.h"

#include <cstdint>
#include <vector>

/// The registry of commands in the order in which they are tried, arranged so that only those are
/// tried which a block can hold: the first byte of their word occurs and, where a built-in
/// command's word is one letter with a number, that number stands behind it. A dialect with many
/// commands thus costs no more than one with few. Made after the registry was sorted; does not own
/// the commands.
class CommandIndex {
public:
    /// Throws std::bad_alloc when memory is exhausted.
    explicit CommandIndex(const AvailableCommands& commands);

    /// Has every command that the block can hold scan its rest, until that is empty. What the walk
    /// over all commands would do, it does: a leading blank goes before every command of the
    /// registry. Returns the first non-zero code, or 0.
    int scanNC(Block& block);

private:
    // Bit i of a set stands for m_commands[i].
    using Set = std::vector<std::uint64_t>;
    static constexpr std::size_t kBits = 64;
    static constexpr std::size_t kNumberClasses = 64;

    struct FirstByte {
        char byte = '\0';
        Set any;                   // words of several letters, without a number, or a host's
        std::vector<Set> byNumber; // letter with a number, by the number's class
    };

    [[nodiscard]] static std::size_t numberClass(int number) noexcept {
        return static_cast<std::size_t>(number) % kNumberClasses;
    }
    FirstByte& rowOf(char byte);
    void select(const Block& block) noexcept;
    void add(const Set& set) noexcept;
    /// The position of the first command selected at or behind `from`; the count when there is
    /// none.
    [[nodiscard]] std::size_t nextSelected(std::size_t from) const noexcept;
    int tryCommand(Command& command, Block& block);

    std::vector<Command*> m_commands; // by their position in the registry
    std::vector<FirstByte> m_rows;
    ByteSet m_firstBytes; // of all rows
    Set m_selected;
};
