#pragma once

#include <span>

/// What a cycle does at its place, one thing at a time, along the normal of the plane.
enum class CycleStep {
    kFeedDown,        ///< to the depth
    kPeckOut,         ///< to the depth in pecks, and to the clearance between them
    kPeckBack,        ///< the same, but only the lift up between them
    kDwell,           ///< when the cycle has a dwell
    kStop,            ///< the spindle stops
    kTurnBack,        ///< it turns against the direction of the cycle
    kTurnAgain,       ///< it turns as before
    kShift,           ///< off the wall of the hole, along the first axis of the plane
    kShiftBack,       ///< and back
    kFeedOut,         ///< to the return height or the clearance, as the control does
    kFeedToClearance, ///< out to the clearance
    kReturn           ///< rapid to the return height
};

/// What is asked of the spindle when a cycle begins, and how it turns for it.
enum class CycleTurning { kAny, kEither, kClockwise, kCounterClockwise };

/// Where the dwell of a cycle comes from, beside the block itself.
enum class CycleDwell {
    kNone,   ///< there is none
    kOwn,    ///< earlier blocks of the same code
    kKept,   ///< earlier cycles as well
    kWanted, ///< the same, but strict controls want it when the code begins
};

/// A cycle: its steps in their order, and what they need.
struct CycleKind {
    std::span<const CycleStep> steps;
    CycleDwell dwell = CycleDwell::kNone;
    CycleTurning turning = CycleTurning::kAny;
    bool hasPeck = false;
    bool hasShift = false; ///< the peck's word tells by how much
};
