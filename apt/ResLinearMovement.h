#pragma once

#include "apt/Result.h"
#include "softCommon/Boolean.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// Writes the result of a straight movement command in the output language.
class ResLinearMovement : public Result {
public:
    using Result::Result;
    ResLinearMovement(const ResLinearMovement&) = delete;
    ResLinearMovement& operator=(const ResLinearMovement&) = delete;

    /// Writes the tool axis.
    virtual void InitOutput(const gmVector3& axis) = 0;
    /// Writes the target point, in mm, with the rapid mark in front when `rapid` is 1.
    virtual void InitOutput(Boolean rapid, double& x, double& y, double& z) = 0;
    /// The same with the tool axis in the point's own statement, where that changes from one point
    /// to the next. No negative zero is written.
    virtual void InitOutput(Boolean rapid, const gmVector3& point, const gmVector3& axis) = 0;
    virtual ~ResLinearMovement() = default;
};
