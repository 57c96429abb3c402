#pragma once

#include "commands/ControlCommand.h"

class MachineStatus;

/// The dwell. The words that tell its time are its own wherever they stand in the block, also those
/// that mean an axis, a feed or a speed elsewhere. Nothing moves by it, and nothing else changes.
class DwellCommand final : public ControlCommand {
public:
    /// `control` and `status` must outlive the command.
    DwellCommand(Control& control, MachineStatus& status) noexcept
        : ControlCommand(control), m_status(status) {}
    ~DwellCommand() override;

    /// Refuses a block without a time, with several, or with a negative one.
    int Act() override;

private:
    void takeWords(char* line) override;

    MachineStatus& m_status;
    double m_time = 0.0; ///< s, or turns of the spindle
    bool m_isInTurns = false;
    int m_times = 0; ///< how many the block gives
};
