#pragma once

#include "apt/ResCircularMovement.h"

/// The circular movement in APT: start in a direction, drive forward along a circle, stop on the
/// line from the centre through the end point. The plane's normal only decides the direction.
class AResCircularMovement final : public ResCircularMovement {
public:
    using ResCircularMovement::ResCircularMovement;

    void InitOutput(const gmVector3& axis) override;
    void InitOutput(Boolean clockwise, const double& startX, const double& startY,
                    const double& startZ, const double& endX, const double& endY,
                    const double& endZ, const double& centreX, const double& centreY,
                    const double& centreZ, const double& normalX, const double& normalY,
                    const double& normalZ) override;

    /// The unit vector of `normal` x (centre - start): the direction of travel at the start point,
    /// clockwise for whoever the normal points at. The nine values are start, centre and normal.
    /// Ends the process by assertion when the start lies on the centre or on the axis through it.
    [[nodiscard]] static gmVector3 computeTangent(const double& startX, const double& startY,
                                                  const double& startZ, const double& centreX,
                                                  const double& centreY, const double& centreZ,
                                                  const double& normalX, const double& normalY,
                                                  const double& normalZ);
};
