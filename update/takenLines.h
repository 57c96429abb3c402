#pragma once

#include <memory>

/// Tells for every line of an old file whether a converter takes it over: an element per line, null
/// when memory is exhausted. A line under an old name of versionCopy counts like one under the new
/// name.
[[nodiscard]] std::unique_ptr<bool[]> takenLines(char* const* lines) noexcept;
