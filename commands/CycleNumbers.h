#pragma once

#include <optional>

/// What the steps of a cycle need at its place. Heights are coordinates of the program along the
/// normal of the plane, and so are the lengths.
struct CycleNumbers {
    double clearance = 0.0; ///< not below the depth
    double depth = 0.0;
    double back = 0.0;      ///< the return height, not below the clearance
    double firstPeck = 0.0; ///< above 0 where the cycle has pecks, as is the next
    double peck = 0.0;
    double lift = 0.0;
    double shift = 0.0;
    std::optional<double> dwell;        ///< seconds, at each depth
    std::optional<double> dwellAtStart; ///< seconds, at the clearance between pecks
    // Where the programmed feed does not count:
    std::optional<double> firstFeed; ///< of the first peck
    std::optional<double> feedDown;
    std::optional<double> feedUp; ///< to the clearance
};
