#pragma once

#include <cstddef>

/// What a command does to the machine, as far as it matters for the order in which the commands of
/// one block act.
enum class ActionKind : std::size_t {
    kFeed,
    kSpeed, ///< the mode of the speed and its limit
    kTool,
    kSpindle,
    kCoolant,
    kDwell,
    kPlane,
    kUnits,
    kCompensation,
    kZeroSystem,
    kDistanceMode, ///< absolute or incremental positions
    kCentreMode,   ///< absolute or relative centres
    kReturnMode,
    kShift, ///< shifts, tables, frames and reference points
    kMovement,
    kSpindleOff,
    kCoolantOff,
    kEnd, ///< stops and ends
    kCount
};

inline constexpr std::size_t kActionKindCount = static_cast<std::size_t>(ActionKind::kCount);
