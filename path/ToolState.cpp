#include "path/ToolState.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

double ToolState::TurnsPerMinute(double radius) const noexcept {
    if (spindle == SpindleState::kOff) {
        return 0.0;
    }
    if (!isCuttingSpeed) {
        return speed;
    }
    constexpr double kMillimetresPerMetre = 1000.0;
    const double around = 2.0 * std::numbers::pi * std::fabs(radius);
    const double turns = around > 0.0 ? speed * kMillimetresPerMetre / around
                                      : std::numeric_limits<double>::infinity();
    return speedLimit > 0.0 ? std::min(turns, speedLimit) : turns;
}
