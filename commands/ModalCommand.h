#pragma once

#include "commands/Command.h"

class CommandGroup;

/// A command that stays active in its group until another member of the group is found.
class ModalCommand : public Command {
public:
    ModalCommand() noexcept = default;
    ~ModalCommand() override;

    /// The first of the two steps: takes the values that belong to the command out of the block.
    /// Tells whether there was one. There is none here.
    virtual bool TakeWords(char* line);

    /// InitSyntax, and remembers the group. Joining the group's list is the creator's business.
    void InitModalSyntax(const char* syntax, const int& number, CommandGroup* group) noexcept;
    /// Remembers the group alone.
    void JoinGroup(CommandGroup* group) noexcept { m_group = group; }
    /// Makes this command the active one of its group, if it has one.
    void InitActiveCommand() noexcept;

private:
    CommandGroup* m_group = nullptr; // not owned
};
