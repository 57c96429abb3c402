#pragma once

#include <memory>

/// Tells for every line of an old file (as liesPP gives it, not changed) whether it is a key line
/// that no converter takes over: an element per line, null when memory is exhausted. A line that a
/// setting under an older name replaces counts as not taken over.
[[nodiscard]] std::unique_ptr<bool[]> unconvertedKeyLines(char* const* lines) noexcept;
