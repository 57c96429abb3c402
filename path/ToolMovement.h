#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

#include <cstdint>

enum class MovementKind : std::uint8_t { kRapid, kFeed, kArc };

/// One movement of the tool as its statement tells it. It begins where the movement before it ends.
/// The indexes lead into the arrays of the ToolPath that holds it.
struct ToolMovement {
    gmVector3 end;           ///< mm
    std::uint32_t line = 0;  ///< of its GOTO or TLON, from 1
    std::uint32_t state = 0; ///< in states
    std::uint32_t axis = 0;  ///< in axes
    std::uint32_t arc = 0;   ///< in arcs; counts for an arc alone
    MovementKind kind = MovementKind::kFeed;
    /// Where it begins nobody tells: the first straight one, and one behind GOHOME.
    bool startsAnew = false;

    [[nodiscard]] bool IsArc() const noexcept { return kind == MovementKind::kArc; }
    [[nodiscard]] bool IsRapid() const noexcept { return kind == MovementKind::kRapid; }
};

/// What an arc is besides its ends.
struct ToolArc {
    gmVector3 centre;    ///< mm, as written
    gmVector3 normal;    ///< of length 1; the tool turns right-handed about it
    double radius = 0.0; ///< mm, as written: that of the end
    double angle = 0.0;  ///< radians, above 0, at most a full turn
};
