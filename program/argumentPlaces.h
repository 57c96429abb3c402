#pragma once

#include <string_view>
#include <vector>

/// The numbers of the local variables that arguments by letter set ("G65 P9010 A1. X2."), in the
/// order of `letters`; 0 for a letter that is no argument. Where I, J or K come more than once they
/// form sets: #4 to #6, #7 to #9 and so on, up to the tenth.
[[nodiscard]] std::vector<int> argumentPlaces(std::string_view letters);
