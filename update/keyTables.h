#pragma once

#include "update/versionCopy.h"

/// Which old key becomes which key of the current format, one table per section. These tables are
/// the only place where a further key is added.

[[nodiscard]] std::span<const KeyMapping> machineKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> addressKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> stringKeys() noexcept;
/// The string keys and those of the integer section alone.
[[nodiscard]] std::span<const KeyMapping> integerKeys() noexcept;
[[nodiscard]] std::span<const KeyMapping> realKeys() noexcept;
