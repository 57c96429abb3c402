#pragma once

#include "paramfile/vxveh.h"

#include <array>
#include <cstddef>

/// One line of the older generation as it stands in a file: three physical lines of 80, 80 and 1
/// characters, each a string with its terminating NUL and without a line end.
struct OldPhysicalLines {
    std::array<char, kOldLineLength + 1> first{};
    std::array<char, kOldLineLength + 1> second{};
    std::array<char, 2> third{};
};

/// Codes `plain`, at most 80 characters, filled with blanks to 80. Returns 0 or a CoderResult after
/// a message on standard error; `physical` is then left as it is.
[[nodiscard]] int codeOldLine(const char* plain, OldPhysicalLines& physical) noexcept;
