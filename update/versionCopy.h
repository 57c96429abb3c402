#pragma once

#include <span>

/// A key of the older generation and the name that takes its place.
struct KeyMapping {
    const char* oldKey;
    const char* newKey;
};

/// The keys that newer old files carry under another name, in the order of their renaming.
[[nodiscard]] std::span<const KeyMapping> renamedKeys() noexcept;

/// Renames keys in place, so that the converters find each setting under one key. The first line
/// with an old name takes the new one; when a line with the new name exists already, that one is
/// replaced by a renamed copy and the old line stays: the old name wins. Returns 0, or 1 when
/// memory is exhausted; the array is whole then, too.
[[nodiscard]] int versionCopy(char** lines) noexcept;
