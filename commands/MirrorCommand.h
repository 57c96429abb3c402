#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/RotaryWord.h"

/// A code that mirrors the named axes at the places that their words give, until it is cancelled
/// for the axis; or the code that cancels, without words for all axes.
class MirrorCommand final : public ControlCommand {
public:
    MirrorCommand(Control& control, bool isOn) noexcept : ControlCommand(control), m_isOn(isOn) {}
    ~MirrorCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    void mirror(int axis, double place);

    bool m_isOn;
    RotaryValues m_rotary; // of the block at hand
    AxisValues m_values;   // of the block at hand
    bool m_hasWords = false;
};
