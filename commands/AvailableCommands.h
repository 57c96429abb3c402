#pragma once

#include "commands/Command.h"

#include <memory>
#include <vector>

/// The registry of every command of the dialect. It owns them and fixes the order in which they
/// are tried on a block.
class AvailableCommands {
public:
    AvailableCommands() noexcept = default;
    AvailableCommands(const AvailableCommands&) = delete;
    AvailableCommands& operator=(const AvailableCommands&) = delete;
    virtual ~AvailableCommands();

    /// Takes the command over and puts it at the head. When memory is exhausted the command is
    /// destroyed and std::bad_alloc thrown.
    void NewCommand(Command* command);
    /// Orders by rank, then by descending length on a block, so that "G100" is tried before "G1".
    /// Equal ones keep their order: the one registered last is tried first.
    void SortCommands();
    /// Length of the text that a command occupies on a block: its syntax and the digits of its
    /// number (0 has one, -1 none). 0 for a null syntax, with or without a number.
    [[nodiscard]] int GetCommandLength(const char* syntax, const int& number) const noexcept;
    /// The i-th command from the head. The caller keeps `i` within [0, GetCommandCount()).
    [[nodiscard]] Command* GetCommand(int i) const noexcept {
        return m_commands[m_commands.size() - 1 - static_cast<std::size_t>(i)].get();
    }
    [[nodiscard]] int GetCommandCount() const noexcept {
        return static_cast<int>(m_commands.size());
    }

private:
    std::vector<std::unique_ptr<Command>> m_commands; // the head is the last entry
};
