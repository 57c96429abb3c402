#pragma once

#include "apt/ResSpindle.h"

/// The spindle in APT.
class AResSpindle final : public ResSpindle {
public:
    using ResSpindle::ResSpindle;

    void InitOutput(int direction, double speed) override;
};
