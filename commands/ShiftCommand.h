#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/RotaryWord.h"

/// A code that shifts the coordinates of the program by the axis words of its block.
class ShiftCommand final : public ControlCommand {
public:
    enum class Kind {
        kSet,   ///< the present point gets the given coordinates
        kLocal, ///< the words are the shift
        kCancel ///< none; where words stand with it they name the axes, unless the control moves
    };

    ShiftCommand(Control& control, Kind kind) noexcept : ControlCommand(control), m_kind(kind) {}
    ~ShiftCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    int setPresent();
    void setPresentAngles();
    void setLocal();
    void setLocalAngles(bool hasOneRegister);
    void cancel();

    Kind m_kind;
    AxisValues m_values; // of the block at hand
    RotaryValues m_rotary;
};
