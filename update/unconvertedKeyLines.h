#pragma once

/// The key lines of an old file (as liesPP gives it, not changed) that no converter takes over, as
/// a new `CharFeld` in file order, without lines when there are none; null when memory is
/// exhausted. A line that a setting under an older name replaces counts as not taken over.
[[nodiscard]] char** unconvertedKeyLines(char* const* lines) noexcept;
