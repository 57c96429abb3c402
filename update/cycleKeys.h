#pragma once

#include <array>
#include <cstddef>
#include <optional>

/// The numbered keys of the drilling cycles: a prefix of six characters and the number of the
/// cycle.

inline constexpr int kCycles = 35;

enum CycleSetting : std::size_t { kCycleText, kCycleBh, kCycleLk, kCycleBlockL, kCycleBlockK };
inline constexpr std::size_t kCycleSettings = 5;

/// Keys that stand once for all cycles.
inline constexpr const char* kCycleMkooKey = "*CYCMKOO";
inline constexpr const char* kCyclesAtEndKey = "*CYCANEN";

struct CycleKey {
    CycleSetting setting;
    int cycle; ///< 1 to kCycles
};

/// The text of a key with its terminating NUL.
[[nodiscard]] std::array<char, 9> cycleKeyText(const CycleKey& key) noexcept;

/// The cycle key that `line` begins with, if any.
[[nodiscard]] std::optional<CycleKey> cycleKeyOf(const char* line) noexcept;
