#pragma once

#include <cstddef>

/// The growth of null-ended arrays, which store no capacity: room for `entries` entries, one more
/// and the null entry. A null array is made; another one grows by `increment` slots (at least 1)
/// whenever `entries` + 1 is a multiple of it, so all calls for one array give the same increment,
/// or one that was doubled right after such a growth. Returns the array, which may have moved; null
/// when memory is exhausted, and `array` is then as it was.
[[nodiscard]] char** withRoomForOne(char** array, std::size_t entries,
                                    std::size_t increment) noexcept;
