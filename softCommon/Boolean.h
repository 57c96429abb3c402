#pragma once

/// The system's truth type: word-sized, 0 false and 1 true. Flags are compared with 1; any other
/// value counts as false.
using Boolean = int;

inline constexpr Boolean FALSE = 0;
inline constexpr Boolean TRUE = 1;
