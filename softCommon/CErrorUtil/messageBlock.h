#pragma once

#include <cstdint>

/// Prints the block of a message on the trace stream, the look-up's own lines within it. The worker
/// of CatStderrMessage: other than the default printer it falls back to the short text only when
/// there is no long one, not when that is empty.
void gilerr(std::int32_t msgnr) noexcept;
