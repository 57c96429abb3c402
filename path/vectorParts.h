#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

[[nodiscard]] constexpr double dotProduct(const gmVector3& a, const gmVector3& b) noexcept {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// What of a vector lies across a direction of length 1.
[[nodiscard]] constexpr gmVector3 across(const gmVector3& v, const gmVector3& direction) noexcept {
    return v - direction * dotProduct(v, direction);
}
