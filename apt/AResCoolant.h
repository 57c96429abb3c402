#pragma once

#include "apt/ResCoolant.h"

/// The coolant in APT.
class AResCoolant final : public ResCoolant {
public:
    using ResCoolant::ResCoolant;

    void InitOutput(Boolean on) override;
    void WriteMist() override;
};
