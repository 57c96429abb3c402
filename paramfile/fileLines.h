#pragma once

#include "softCommon/CStringUtil/CharFeld.h"

#include <cstdio>

/// Reads the rest of `in` into `lines`, each line cut at its line end. Returns 0, or the error
/// number of the failure; what was read until then is in `lines`.
[[nodiscard]] int readFileLines(std::FILE* in, CharFeldOwner& lines) noexcept;
