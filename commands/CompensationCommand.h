#pragma once

#include "commands/ControlCommand.h"

#include <optional>

class MachineStatus;

/// The radius of the tool is compensated from now on, to the left or to the right of the contour.
/// The path stays the programmed one.
class CompensationCommand final : public ControlCommand {
public:
    /// `control` and `status` must outlive the command.
    CompensationCommand(Control& control, MachineStatus& status, bool isLeft) noexcept
        : ControlCommand(control), m_status(status), m_isLeft(isLeft) {}
    ~CompensationCommand() override;

    /// Refuses the number of a register that is negative, not whole or too large.
    int Act() override;

private:
    void takeWords(char* line) override;

    MachineStatus& m_status;
    bool m_isLeft;
    std::optional<double> m_register;
};
