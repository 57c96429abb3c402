#pragma once

#include <span>

/// A key of the older generation and the name that takes its place.
struct KeyMapping {
    const char* oldKey;
    const char* newKey;
};

/// The keys that newer old files carry under another name, in the order of their renaming.
[[nodiscard]] std::span<const KeyMapping> renamedKeys() noexcept;

/// Which old key becomes which key of the current format, one table per section. These tables are
/// the only place where a further key is added.

[[nodiscard]] std::span<const KeyMapping> machineKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> addressKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> stringKeys() noexcept;
/// The string keys and those of the integer section alone.
[[nodiscard]] std::span<const KeyMapping> integerKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> realKeys() noexcept;
