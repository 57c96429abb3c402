#pragma once

#include "commands/Command.h"

/// A command that acts only where it stands and belongs to no group.
class NonModalCommand : public Command {
public:
    NonModalCommand() noexcept = default;
    ~NonModalCommand() override;

    void InitNonModalSyntax(const char* syntax, const int& number) noexcept;
};
