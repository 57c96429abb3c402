#pragma once

#include <cstdio>

/// Opens a stream of its own, with a descriptor of its own, on the file that `descriptor` leads to;
/// both share one position. Null, with errno set, when that fails.
[[nodiscard]] std::FILE* openAnotherStream(int descriptor, const char* mode) noexcept;
