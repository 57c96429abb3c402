#pragma once

#include "apt/ResSpindle.h"

/// The spindle in APT.
class AResSpindle final : public ResSpindle {
public:
    using ResSpindle::ResSpindle;

    void InitOutput(int direction, double speed) override;
    void WriteCuttingSpeed(int direction, double speed, bool isInch) override;

private:
    void writeTurning(int direction, double speed, const char* unit) const;
};
