#pragma once

#include "apt/ResMovTypeCom.h"

/// The movement type in APT.
class AResMovTypeCom final : public ResMovTypeCom {
public:
    AResMovTypeCom(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : ResMovTypeCom(output, log, counts) {}

    void InitOutput(Boolean absolute) override;
};
