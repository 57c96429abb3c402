#pragma once

#include "apt/ResLinearMovement.h"

/// The straight movement in APT.
class AResLinearMovement final : public ResLinearMovement {
public:
    using ResLinearMovement::ResLinearMovement;

    void InitOutput(const gmVector3& axis) override;
    void InitOutput(Boolean rapid, double& x, double& y, double& z) override;
    void InitOutput(Boolean rapid, const gmVector3& point, const gmVector3& axis) override;
};
