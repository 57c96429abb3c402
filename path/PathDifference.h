#pragma once

#include "path/ToolPath.h"

#include <cstddef>

/// Where two paths differ.
struct PathDifference {
    const char* what =
        nullptr;              ///< in which the first movement differs; null: the paths are the same
    std::size_t movement = 0; ///< its index in both; one of the paths may end there
    /// The largest distance, in mm, of a point of one path from the other path, as far as these
    /// differ: the movements that both begin with and those that both end with do not count.
    double distance = 0.0;
    gmVector3 point;          ///< the point that is so far off
    bool isOfSecond = false;  ///< which path it belongs to
    std::size_t farthest = 0; ///< and which of its movements
};

/// Compares the movements of two paths with what holds while the tool moves. Numbers are the same
/// when their printed digits leave it open. Each path has a movement.
[[nodiscard]] PathDifference comparePaths(const ToolPath& a, const ToolPath& b);
