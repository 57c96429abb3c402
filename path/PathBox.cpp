#include "path/PathBox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

void PathBox::Add(const gmVector3& point) noexcept {
    if (isEmpty) {
        low = high = point;
        isEmpty = false;
        return;
    }
    for (int axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], point[axis]);
        high[axis] = std::max(high[axis], point[axis]);
    }
}

void PathBox::Add(const PathBox& box) noexcept {
    if (!box.isEmpty) {
        Add(box.low);
        Add(box.high);
    }
}

// Along each axis an arc turns back twice in a full turn, half a turn apart.
void PathBox::Add(const ToolPath& path, std::size_t movement) noexcept {
    Add(path.StartOf(movement));
    Add(path.movements[movement].end);
    if (!path.movements[movement].IsArc()) {
        return;
    }
    const Sweep sweep = path.SweepOf(movement);
    for (int axis = 0; axis < 3; ++axis) {
        const double angle = std::atan2(sweep.across[axis], sweep.from[axis]);
        const double first = angle < 0.0 ? angle + std::numbers::pi : angle;
        const double count = std::ceil((sweep.angle - first) / std::numbers::pi);
        for (long turn = 0; static_cast<double>(turn) < count; ++turn) {
            Add(sweep.PointAt(first + static_cast<double>(turn) * std::numbers::pi));
        }
    }
}
