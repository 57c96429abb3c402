#pragma once

#include "apt/ResCoolant.h"

/// The coolant in APT.
class AResCoolant final : public ResCoolant {
public:
    AResCoolant(std::FILE* output, std::FILE* log) noexcept : ResCoolant(output, log) {}

    void InitOutput(Boolean on) override;
};
