#pragma once

#include "paramfile/codingKey.h"

#include <array>
#include <cstdint>

/// The state of the pseudo-random generator behind the coded lines. vxinit starts it; a state not
/// started is not to be advanced. Same numbers on every machine: the arithmetic is exact.
struct CodingGenerator {
    std::array<std::uint64_t, 4> states{};
};

/// Starts the generator from the four values of `key`.
void vxinit(CodingGenerator& generator, const CodingKey& key) noexcept;

/// Advances the generator and returns its next number, at least 0 and below 1.
[[nodiscard]] double vxnext(CodingGenerator& generator) noexcept;
