#pragma once

#include "commands/ControlCommand.h"

#include <optional>

class MachineStatus;

/// The highest speed of the spindle, as a code whose block has the word of the speed. Without that
/// the block is left to another command of the same code.
class SpeedLimitCommand final : public ControlCommand {
public:
    /// `control` and `status` must outlive the command.
    SpeedLimitCommand(Control& control, MachineStatus& status) noexcept;
    ~SpeedLimitCommand() override;

    [[nodiscard]] bool Claims(const char* line) const override;
    /// Refuses axis words: they would have to shift the zero as well.
    int Act() override;

private:
    void takeWords(char* line) override;

    MachineStatus& m_status;
    double m_limit = 0.0;
    bool m_hasAxisWords = false;
};
