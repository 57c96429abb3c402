#include "commands/withoutNoise.h"

#include <cmath>

namespace {

double withoutNoise(double value) noexcept {
    constexpr double kGrid = 1e9;
    constexpr double kLargest = 1e6; // beyond, a double has no such decimals
    if (!(std::abs(value) < kLargest)) {
        return value;
    }
    return std::nearbyint(value * kGrid) / kGrid + 0.0; // +0.0: no negative zero
}

} // namespace

gmVector3 withoutNoise(const gmVector3& point) {
    return {withoutNoise(point[0]), withoutNoise(point[1]), withoutNoise(point[2])};
}
