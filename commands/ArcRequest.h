#pragma once

#include "commands/Plane.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <optional>

/// How far the radii of start and end of an arc may differ, and how short a programmed radius may
/// be. Lengths are in mm; the first and the last length of the circle are a tenth of their number
/// in inches while the program is in inches.
struct ArcTolerance {
    double low = 0.0283;     ///< a difference up to here is never an error
    double fraction = 0.001; ///< of the start radius: a difference up to here is none, either
    double high = 2.83;      ///< a difference above is always one
    double radius = 0.00127; ///< by which a radius may be short of half the chord

    /// The same in inches.
    [[nodiscard]] ArcTolerance InInches() const noexcept;
    /// Whether the distances of start and end from the centre differ too much for an arc. Those
    /// that are no numbers do.
    [[nodiscard]] bool IsExceeded(double atStart, double atEnd) const noexcept;
};

/// What a block says of an arc, in lengths of the program's unit.
struct ArcRequest {
    gmVector3 start;
    gmVector3 end;
    Plane plane = Plane::kXY;
    bool isClockwise = false;                    ///< as seen from the tip of the plane's normal
    std::array<std::optional<double>, 3> centre; ///< coordinates of the centre, as far as given
    bool needsWholeCentre = false;               ///< a coordinate not given is an error
    std::optional<double> radius;                ///< negative: the longer way round
    std::optional<double> turnsBegun;
    std::optional<double> turnsMore; ///< full turns in addition
    ArcTolerance tolerance;          ///< in the program's unit
};
