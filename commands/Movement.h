#pragma once

#include "commands/Sweep.h"
#include "softCommon/Boolean.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <optional>

/// The arc of a movement.
struct Arc {
    Boolean clockwise = TRUE; ///< for whoever the normal points at; counts when it is 1
    gmVector3 centre;         ///< mm
    gmVector3 normal;         ///< of the plane of the arc
    bool hasCentreWord = false;
};

/// One movement of the tool. A command makes it in program coordinates; it then passes the stages
/// that turn those into the coordinates of the output, and is written in one place.
struct Movement {
    Boolean rapid = FALSE; ///< of a straight movement; counts as rapid when it is 1
    gmVector3 start;       ///< mm, as the other points
    gmVector3 end;
    std::optional<Arc> arc;            ///< as described by its block; none: straight, or a sweep
    std::optional<Sweep> sweep;        ///< an arc that was computed
    std::optional<gmVector3> toolAxis; ///< to be told ahead of the movement
    std::optional<gmVector3> axis;     ///< of the tool at the end, told with it where it can turn
    double feed = 0.0;                 ///< mm/min or mm/rev, as programmed last
    bool needsFeed = true;             ///< unless it is rapid; a thread has its pitch
};
