#pragma once

#include "apt/Result.h"

/// Writes the result of a spindle command in the output language.
class ResSpindle : public Result {
public:
    using Result::Result;
    ResSpindle(const ResSpindle&) = delete;
    ResSpindle& operator=(const ResSpindle&) = delete;

    /// Writes the speed in rev/min; `direction` is above 0 for clockwise, below 0 for
    /// counter-clockwise, 0 for stop (the speed is not written then).
    virtual void InitOutput(int direction, double speed) = 0;
    virtual ~ResSpindle() = default;
    /// The same for a spindle whose speed follows the cutting speed, in m/min or ft/min.
    virtual void WriteCuttingSpeed(int direction, double speed, bool isInch) {
        (void)isInch;
        InitOutput(direction, speed);
    }
};
