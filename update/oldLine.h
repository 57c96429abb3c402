#pragma once

#include "softCommon/HeapText.h"

#include <cstddef>

/// One line of an old parameter file: "*" and seven characters make its key, column 9 is blank, the
/// value begins in column 10. Columns are counted from 1; a column behind the end of a line counts
/// as a blank.

inline constexpr std::size_t kKeyLength = 8;
inline constexpr std::size_t kSeparatorColumn = 9;
inline constexpr std::size_t kValueColumn = 10;
inline constexpr std::size_t kWholeRest = SIZE_MAX;

/// Whether the first 8 characters of `line` are those of `key`.
[[nodiscard]] bool hasKey(const char* line, const char* key) noexcept;

/// Whether `line` is a key line: "*", seven characters of "A" to "Z", "0" to "9" and "_", and a
/// blank. Any other line belongs to the value of the key line above it.
[[nodiscard]] bool isKeyLine(const char* line) noexcept;

/// The text of `line` from `column` on; empty when the line is shorter.
[[nodiscard]] const char* textFromColumn(const char* line, std::size_t column) noexcept;

/// At most `width` characters of `line` from `column` on, trimmed; null when memory is exhausted.
[[nodiscard]] HeapText trimmedColumns(const char* line, std::size_t column,
                                      std::size_t width = kWholeRest) noexcept;

/// The decimal integer at `column` of `line`, 0 without digits; a null line is an empty one.
[[nodiscard]] long integerFromColumn(const char* line, std::size_t column) noexcept;
