#pragma once

#include "apt/ResMovTypeCom.h"

/// The movement type in APT.
class AResMovTypeCom final : public ResMovTypeCom {
public:
    AResMovTypeCom(std::FILE* output, std::FILE* log) noexcept : ResMovTypeCom(output, log) {}

    void InitOutput(Boolean absolute) override;
};
