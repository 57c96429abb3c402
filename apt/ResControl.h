#pragma once

#include "apt/Result.h"

#include <optional>

/// Writes in the output language what a control does beside moving: the statements that have no
/// value of their own in the command model's groups.
class ResControl : public Result {
public:
    using Result::Result;
    ResControl(const ResControl&) = delete;
    ResControl& operator=(const ResControl&) = delete;

    /// The tool stands still for so many seconds, or turns of the spindle.
    virtual void WriteDelay(double seconds) = 0;
    virtual void WriteDelayInTurns(double turns) = 0;
    /// The unit of all lengths that follow.
    virtual void WriteUnits(bool isInch) = 0;
    /// Which side of the contour the tool is on, with the number of its register, if any.
    virtual void WriteCompensation(bool isLeft, std::optional<int> number) = 0;
    virtual void WriteCompensationOff() = 0;
    virtual void WriteStop(bool isOptional) = 0;
    /// The tool goes to the reference point of the machine.
    virtual void WriteGoHome() = 0;
    /// The highest speed of the spindle, rev/min.
    virtual void WriteSpeedLimit(double speed) = 0;
    /// From now on points have the tool axis with them.
    virtual void WriteMultiAxis() = 0;
    virtual ~ResControl() = default;
};
