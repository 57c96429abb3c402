#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/RotaryWord.h"
#include "softCommon/CMathUtil/gmVec3.h"

class LinearMovement;

/// A code that sends the tool to the reference point: rapid through the point of the axis words,
/// then there, in the named axes only; without words in all of them, straight. Named are the axes
/// of the program, which may be turned. Where nobody says where machine zero lies, the statement
/// for it stands for the way there, and the named axes are unknown from then on.
class ReferencePointCommand final : public ControlCommand {
public:
    /// `rapid` must outlive the command.
    ReferencePointCommand(Control& control, LinearMovement& rapid) noexcept
        : ControlCommand(control), m_rapid(rapid) {}
    ~ReferencePointCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    int goThrough();
    int goToReferencePoint();
    [[nodiscard]] bool isNamed(int axis) const;

    LinearMovement& m_rapid;
    AxisValues m_values; // of the block at hand
    RotaryValues m_rotary;
    bool m_hasWords = false;
};
