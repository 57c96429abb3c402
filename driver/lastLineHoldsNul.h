#pragma once

#include <cstdio>

/// Whether a NUL byte stands among the last bytes of the file, at most a block of them, that no
/// newline follows. `file` is at its end and stays there. False for a stream that has no positions,
/// such as a pipe.
[[nodiscard]] bool lastLineHoldsNul(std::FILE* file) noexcept;
