#pragma once

#include "apt/ResCoolant.h"

/// The coolant in APT.
class AResCoolant final : public ResCoolant {
public:
    AResCoolant(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : ResCoolant(output, log, counts) {}

    void InitOutput(Boolean on) override;
};
