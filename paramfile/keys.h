#pragma once

#include "paramfile/Key.h"

#include <array>
#include <span>

/// The keys of the parameter file, in the order in which they are tried. A line is searched for in
/// one table after the other.
[[nodiscard]] std::span<const Key> classKeys() noexcept;
[[nodiscard]] std::span<const Key> commandKeys() noexcept;
[[nodiscard]] std::span<const Key> parameterKeys() noexcept;

/// All three, in that order.
[[nodiscard]] std::array<std::span<const Key>, 3> keyTables() noexcept;
