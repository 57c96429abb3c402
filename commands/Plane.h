#pragma once

#include <array>
#include <cstddef>

/// The plane of arcs and cycles: a state of the machine.
enum class Plane { kXY, kZX, kYZ };

/// The axes of a plane, from 0 to 2: the first, the second, and the one along its normal. A quarter
/// turn from the first to the second is counter-clockwise as seen from the tip of the normal.
struct PlaneAxes {
    int first;
    int second;
    int normal;
};

[[nodiscard]] constexpr PlaneAxes axesOf(Plane plane) noexcept {
    constexpr std::array<PlaneAxes, 3> kAxes = {{{0, 1, 2}, {2, 0, 1}, {1, 2, 0}}};
    return kAxes[static_cast<std::size_t>(plane)];
}
