#pragma once

#include "update/OldLines.h"

/// Renames the renamedKeys in place, so that the converters find each setting under one key. The
/// first line with an old name takes the new one; when a line with the new name exists already,
/// that one is replaced by a renamed copy and the old line stays: the old name wins, and who takes
/// the copy takes the old line. Returns 0, or 1 when memory is exhausted; the array is whole then,
/// too.
[[nodiscard]] int versionCopy(OldLines lines) noexcept;
