#include "path/ToolPath.h"

#include "path/vectorParts.h"

#include <cmath>

gmVector3 ToolPath::StartOf(std::size_t movement) const noexcept {
    const ToolMovement& move = movements[movement];
    if (move.startsAnew) {
        return move.end;
    }
    return movement == 0 ? NullVector3 : movements[movement - 1].end;
}

Sweep ToolPath::SweepOf(std::size_t movement) const noexcept {
    const ToolMovement& move = movements[movement];
    return SweepOf(arcs[move.arc], StartOf(movement), move.end);
}

// The ends are exact; what they are off a circle, by their digits or by the program, is growth and
// rise.
Sweep ToolPath::SweepOf(const ToolArc& arc, const gmVector3& start, const gmVector3& end) noexcept {
    Sweep sweep;
    sweep.from = across(start - arc.centre, arc.normal);
    sweep.centre = start - sweep.from;
    sweep.across = cross(arc.normal, sweep.from);
    sweep.rise = arc.normal * dotProduct(end - start, arc.normal);
    sweep.angle = arc.angle;
    sweep.growth = across(end - arc.centre, arc.normal).length() / sweep.from.length();
    return sweep;
}

double ToolPath::LengthOf(std::size_t movement) const noexcept {
    const ToolMovement& move = movements[movement];
    if (!move.IsArc()) {
        return (move.end - StartOf(movement)).length();
    }
    const Sweep sweep = SweepOf(movement);
    const double radius = sweep.from.length() * 0.5 * (1.0 + sweep.growth);
    return std::hypot(radius * sweep.angle, sweep.rise.length());
}

gmVector3 ToolPath::PointAt(std::size_t movement, double part) const noexcept {
    const ToolMovement& move = movements[movement];
    if (part >= 1.0) {
        return move.end;
    }
    if (move.IsArc()) {
        const Sweep sweep = SweepOf(movement);
        return sweep.PointAt(part * sweep.angle);
    }
    const gmVector3 start = StartOf(movement);
    return start + (move.end - start) * part;
}
