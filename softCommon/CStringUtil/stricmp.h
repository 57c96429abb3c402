#pragma once

/// Compares two strings without regard to the case of the letters A to Z. Returns 0 when they are
/// equal, else the difference of the first unequal pair of lowered bytes, taken as unsigned. A
/// proper prefix compares less. Neither string may be null.
[[nodiscard]] int stricmp(const char* left, const char* right) noexcept;
