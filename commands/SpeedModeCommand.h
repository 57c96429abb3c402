#pragma once

#include "commands/ControlCommand.h"

#include <optional>

class MachineStatus;

/// What the number of the speed is from now on: the cutting speed, or that of the spindle. The
/// statement of the spindle tells it, in the same block while the spindle turns.
class SpeedModeCommand final : public ControlCommand {
public:
    /// `control` and `status` must outlive the command.
    SpeedModeCommand(Control& control, MachineStatus& status, bool isCuttingSpeed) noexcept
        : ControlCommand(control), m_status(status), m_isCuttingSpeed(isCuttingSpeed) {}
    ~SpeedModeCommand() override;

    /// Refuses a cutting speed without a number: the one in force is a speed of the spindle.
    int Act() override;

private:
    void takeWords(char* line) override;

    MachineStatus& m_status;
    bool m_isCuttingSpeed;
    std::optional<double> m_speed;
    std::optional<double> m_limit;
};
