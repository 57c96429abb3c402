#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

/// The angle between two directions of length 1, radians, 0 to pi; exact for small ones.
[[nodiscard]] double angleBetween(const gmVector3& a, const gmVector3& b);

/// The direction at a fraction of the great arc from one direction to another, both of length 1. Of
/// opposite ones the arc runs through a direction that is chosen by `from` alone.
[[nodiscard]] gmVector3 greatArc(const gmVector3& from, const gmVector3& to, double fraction);
