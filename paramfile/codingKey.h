#pragma once

#include <array>
#include <cstdint>

/// The start values of the generator: the key of the coded parameter files. To read files that were
/// coded with another key, replace these values and, if need be, codingGenerator.cpp.
/// Each value is at least 1 and below 2147483123, the smallest modulus of the generator.
using CodingKey = std::array<std::uint32_t, 4>;

/// Files of format releases 7 and later, and files without a version line.
inline constexpr CodingKey kCodingKey = {20477, 8123, 15511, 27919};

/// Files of format releases below 7 and every file of the older generation.
inline constexpr CodingKey kCodingKeyBefore7 = {20477, 3067, 15511, 11239};
