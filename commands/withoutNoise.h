#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

/// The point without what computing left behind the ninth decimal, so that no "-0.00000" and no
/// direction off by a rounding error comes of it. Numbers as programmed stay as they are.
[[nodiscard]] gmVector3 withoutNoise(const gmVector3& point);
