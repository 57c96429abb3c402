#pragma once

#include "paramfile/Key.h"

#include <array>
#include <span>

/// The keys of the parameter file, in the order in which they are tried. A line is searched for in
/// one table after the other.
[[nodiscard]] std::span<const Key> classKeys() noexcept;
[[nodiscard]] std::span<const Key> commandKeys() noexcept;
[[nodiscard]] std::span<const Key> parameterKeys() noexcept;
/// What a dialect says of its control beyond those: order, planes, arcs and units,
[[nodiscard]] std::span<const Key> pathKeys() noexcept;
/// dwell, stops, spindle, tools, compensation and threads,
[[nodiscard]] std::span<const Key> technologyKeys() noexcept;
/// zeros, shifts, frames, reference points, diameters and polar coordinates,
[[nodiscard]] std::span<const Key> coordinateKeys() noexcept;
/// drilling cycles and the passes of lathes,
[[nodiscard]] std::span<const Key> cycleKeys() noexcept;
/// the rotary axes of the machine, and how programs move them.
[[nodiscard]] std::span<const Key> axisKeys() noexcept;

/// All of them, in that order.
[[nodiscard]] std::array<std::span<const Key>, 8> keyTables() noexcept;
