#pragma once

struct Movement;

/// What an arc is besides its points, in mm.
struct ArcShape {
    double startRadius = 0.0; ///< in the plane of the arc
    double endRadius = 0.0;
    double height = 0.0; ///< of the end above the start, along the normal
};

/// Of a movement with an arc. All 0 when the normal of the arc is null.
[[nodiscard]] ArcShape arcShapeOf(const Movement& movement);
