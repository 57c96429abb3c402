#pragma once

#include "update/LineCollector.h"
#include "update/versionCopy.h"

#include <span>

/// Makes the value of the current format out of the old `line`; null when memory is exhausted.
using ValueOf = HeapText (*)(const KeyMapping& mapping, const char* line) noexcept;

/// The row of `mappings` whose old key `line` has, the first one if several; else null.
[[nodiscard]] const KeyMapping* findMapping(std::span<const KeyMapping> mappings,
                                            const char* line) noexcept;

/// Adds the new key and the value of every old line that `mappings` knows, in the order of the old
/// file. A key that stands there twice is converted twice.
void convertValues(char* const* lines, std::span<const KeyMapping> mappings, ValueOf valueOf,
                   LineCollector& section) noexcept;

/// The section that consists of `heading` and the converted values: see SectionConverter.
[[nodiscard]] char** valueSection(const char* heading, char* const* lines,
                                  std::span<const KeyMapping> mappings, ValueOf valueOf) noexcept;

/// The old value field: 8 characters from column 10, trimmed.
[[nodiscard]] HeapText valueField(const KeyMapping& mapping, const char* line) noexcept;
