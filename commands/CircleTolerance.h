#pragma once

#include <algorithm>
#include <cmath>

/// How far the distances of an arc's start and end from its centre may differ, as controls judge
/// it: by a fraction of the radius, yet never less than `low` and never more than `high` (mm).
struct CircleTolerance {
    double low = 0.0283;
    double fraction = 0.001;
    double high = 2.83;
};

/// Whether an arc with these radii (mm) at its start and end has no circle. A limit itself is
/// within the tolerance.
[[nodiscard]] inline bool radiiDiffer(double atStart, double atEnd,
                                      const CircleTolerance& tolerance = {}) noexcept {
    const double difference = std::abs(atStart - atEnd);
    const double share = tolerance.fraction * std::max(atStart, atEnd);
    return difference > std::clamp(share, tolerance.low, tolerance.high);
}
