#pragma once

#include "commands/ControlCommand.h"

/// A code with which the coordinates of its block are those of the machine: no zero, no shift and
/// no frame lies over them.
class MachineBlockCommand final : public ControlCommand {
public:
    using ControlCommand::ControlCommand;
    ~MachineBlockCommand() override;

    int Act() override;
};
