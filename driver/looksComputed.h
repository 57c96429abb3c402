#pragma once

#include <string_view>

/// Whether text that no recogniser took looks like that of a program which computes, branches or
/// calls: variables ("#1", "R1=5"), expressions in brackets ("X[2*3]"), words of structure
/// ("IF", "GOTOF", "o100 while") at its start, and calls ("M98 P1000"). Comments of the three
/// families do not count. For a hint: it knows no dialect, and a name alone is no call to it.
[[nodiscard]] bool looksComputed(std::string_view text) noexcept;
