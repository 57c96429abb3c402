#pragma once

#include "apt/ResLinearMovement.h"

/// The straight movement in APT.
class AResLinearMovement final : public ResLinearMovement {
public:
    AResLinearMovement(std::FILE* output, std::FILE* log,
                       StatementCounts* counts = nullptr) noexcept
        : ResLinearMovement(output, log, counts) {}

    void InitOutput(const gmVector3& axis) override;
    void InitOutput(Boolean rapid, double& x, double& y, double& z) override;
};
