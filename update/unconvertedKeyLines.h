#pragma once

#include <memory>

/// Tells for every line of an old file (as liesPP gives it, with or without the blanks on its
/// right; not changed) whether it is a key line that no converter takes over: an element per line,
/// null when memory is exhausted. A line that a setting under another name replaces counts as not
/// taken over.
///
/// A file whose machine type cannot be told ends the process like updatePP.
[[nodiscard]] std::unique_ptr<bool[]> unconvertedKeyLines(char* const* lines);
