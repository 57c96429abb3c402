#pragma once

#include "apt/ResMovTypeCom.h"

/// The movement type in APT.
class AResMovTypeCom final : public ResMovTypeCom {
public:
    using ResMovTypeCom::ResMovTypeCom;

    void InitOutput(Boolean absolute) override;
};
