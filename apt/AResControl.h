#pragma once

#include "apt/ResControl.h"

/// The same in APT: DELAY, UNITS, CUTCOM, STOP, OPSTOP, GOHOME, SPINDL/MAXRPM, MULTAX.
class AResControl final : public ResControl {
public:
    using ResControl::ResControl;

    void WriteDelay(double seconds) override;
    void WriteDelayInTurns(double turns) override;
    void WriteUnits(bool isInch) override;
    void WriteCompensation(bool isLeft, std::optional<int> number) override;
    void WriteCompensationOff() override;
    void WriteStop(bool isOptional) override;
    void WriteGoHome() override;
    void WriteSpeedLimit(double speed) override;
    void WriteMultiAxis() override;
};
