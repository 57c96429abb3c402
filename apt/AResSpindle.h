#pragma once

#include "apt/ResSpindle.h"

/// The spindle in APT.
class AResSpindle final : public ResSpindle {
public:
    AResSpindle(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : ResSpindle(output, log, counts) {}

    void InitOutput(int direction, double speed) override;
};
