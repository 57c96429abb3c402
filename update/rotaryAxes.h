#pragma once

#include "softCommon/HeapText.h"
#include "update/LineCollector.h"
#include "update/OldLines.h"

#include <array>
#include <cstddef>

/// One rotary axis has eight settings, a ninth with a nutator.
inline constexpr std::size_t kRotaryKeys = 9;

/// Heap copies of the keys of one rotary axis. Entry 0 names the axis; empty entries are no keys.
using RotaryKeys = std::array<HeapText, kRotaryKeys>;

/// Fills `keys` with the old key set of the axis `kind` (1, 2 or 3) and sets `count` to 8, or to 9
/// when `flag` is 1. What `keys` held is released first. Any other kind leaves `keys` empty.
/// Returns 0, or 1 when memory is exhausted.
[[nodiscard]] int setzeKennerAlt(long kind, int flag, RotaryKeys& keys, int& count) noexcept;

/// The same for the new key set of the rotary axis number `axis` (1 or 2) of a machine class; empty
/// for a class without rotary axes.
[[nodiscard]] int setzeKennerNeu(int axis, const char* className, int flag, RotaryKeys& keys,
                                 int& count) noexcept;

/// Appends the first `count` settings of one axis to `out` and returns it. Writes nothing for an
/// empty key set, nor for a setting that one of the sets or the old file lacks. Releases the
/// entries of both key sets.
[[nodiscard]] LineCollector setzeRotAchseUm(LineCollector out, OldLines lines, RotaryKeys& oldKeys,
                                            RotaryKeys& newKeys, int count) noexcept;
