#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

#include <cmath>

/// An arc as a control computes it: at the angle a, from 0 to `angle`, the tool is at
/// centre + g(a) * (cos(a) * from + sin(a) * across) + a / angle * rise, where g goes evenly from 1
/// to `growth`. Whatever turns, shifts, mirrors or scales points does the same to these vectors.
struct Sweep {
    gmVector3 centre;    ///< mm, of the circle in which the arc begins
    gmVector3 from;      ///< mm, from the centre to the start
    gmVector3 across;    ///< mm, the same a quarter turn later
    gmVector3 rise;      ///< mm, of a helix: the way along the normal; else null
    double angle = 0.0;  ///< radians, above 0
    double growth = 1.0; ///< end radius by start radius, which may differ a little

    [[nodiscard]] gmVector3 PointAt(double a) const;
    /// Of the way of the tool, as if the radius were that of the start.
    [[nodiscard]] double Length() const { return std::hypot(from.length() * angle, rise.length()); }
};
