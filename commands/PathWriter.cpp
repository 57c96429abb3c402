#include "commands/PathWriter.h"

#include "commands/withoutNoise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kLargestPiece = 2.0 * std::numbers::pi / 3.0;
constexpr double kSameDirection = 1e-9; // sine of the angle between two
constexpr double kSameLevel = 1e-7;     // five decimals do not show it
constexpr double kWholeParts = 1e-9;    // by which a number of parts may exceed a whole one

// By how much a movement along the arc turns when the straight way lies off it by so much.
double stepOf(double tolerance, double radius) {
    // acos(1 - t/r) keeps no digits of a small t/r; this is the same.
    return 4.0 * std::asin(std::sqrt(std::min(1.0, tolerance / (2.0 * radius))));
}

gmVector3 inner(const Sweep& sweep, long part, long parts) {
    return withoutNoise(
        sweep.PointAt(sweep.angle * static_cast<double>(part) / static_cast<double>(parts)));
}

} // namespace

double PathWriter::PartsOf(const Sweep& sweep, double unit) const {
    const double part =
        IsStatement(sweep) ? kLargestPiece : stepOf(m_tolerance * unit, sweep.from.length());
    return std::max(1.0, std::ceil(sweep.angle / part - kWholeParts));
}

void PathWriter::Write(Movement& movement, double unit) {
    if (!movement.sweep) {
        m_writer.Write(movement);
        return;
    }
    const Sweep sweep = *movement.sweep;
    const auto parts = static_cast<long>(PartsOf(sweep, unit));
    if (IsStatement(sweep)) {
        writePieces(movement, sweep, parts);
    } else {
        writePoints(movement, sweep, parts);
    }
}

bool PathWriter::IsStatement(const Sweep& sweep) const {
    const gmVector3 normal = cross(sweep.from, sweep.across);
    const double sine = cross(normal, m_normal).length();
    return !m_splitsArcs && sweep.rise.length() < kSameLevel &&
           sine <= kSameDirection * normal.length() * m_normal.length();
}

void PathWriter::writePieces(Movement& movement, const Sweep& sweep, long parts) {
    const gmVector3 last = movement.end;
    const gmVector3 turn = cross(sweep.from, sweep.across);
    const double along = turn[0] * m_normal[0] + turn[1] * m_normal[1] + turn[2] * m_normal[2];
    Arc& arc = movement.arc.emplace();
    arc.clockwise = along > 0.0 ? FALSE : TRUE;
    arc.centre = withoutNoise(sweep.centre);
    arc.normal = m_normal;
    for (long part = 1; part <= parts; ++part) {
        movement.end = part == parts ? last : inner(sweep, part, parts);
        m_writer.Write(movement);
        movement.start = movement.end;
        movement.toolAxis.reset();
    }
    movement.arc.reset();
}

void PathWriter::writePoints(Movement& movement, const Sweep& sweep, long parts) {
    const gmVector3 last = movement.end;
    for (long part = 1; part <= parts; ++part) {
        movement.end = part == parts ? last : inner(sweep, part, parts);
        m_writer.Write(movement);
        movement.toolAxis.reset();
    }
}
