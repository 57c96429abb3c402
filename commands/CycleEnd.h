#pragma once

#include "commands/MovementCommand.h"

class Control;

/// The end of cycles. The movement before them is the active one again; on strict controls there is
/// none, as at the start of the program, and a position wants a movement code.
class CycleEnd final : public MovementCommand {
public:
    /// Both must outlive the command.
    CycleEnd(Control& control, MachineStatus& status) noexcept
        : MovementCommand(&status), m_control(control) {}
    ~CycleEnd() override;

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    Control& m_control;
};
