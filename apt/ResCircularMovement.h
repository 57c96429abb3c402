#pragma once

#include "apt/Result.h"
#include "softCommon/Boolean.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// Writes the result of a circular movement command in the output language.
class ResCircularMovement : public Result {
public:
    using Result::Result;
    ResCircularMovement(const ResCircularMovement&) = delete;
    ResCircularMovement& operator=(const ResCircularMovement&) = delete;

    /// Writes the tool axis.
    virtual void InitOutput(const gmVector3& axis) = 0;
    /// Writes the arc from start to end about the centre, in mm; the normal of its plane points at
    /// the viewer. `clockwise` counts when it is 1.
    virtual void InitOutput(Boolean clockwise, const double& startX, const double& startY,
                            const double& startZ, const double& endX, const double& endY,
                            const double& endZ, const double& centreX, const double& centreY,
                            const double& centreZ, const double& normalX, const double& normalY,
                            const double& normalZ) = 0;
    virtual ~ResCircularMovement() = default;
};
