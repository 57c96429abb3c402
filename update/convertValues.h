#pragma once

#include "update/LineCollector.h"
#include "update/OldLines.h"
#include "update/keyTables.h"

/// Makes the value of the current format out of the old `line`; null when memory is exhausted.
using ValueOf = HeapText (*)(const KeyMapping& mapping, const char* line) noexcept;

/// Takes over every old line that `mappings` knows (the first row that fits, if several): adds the
/// new key and the value, in the order of the old file. A key that stands there twice is converted
/// twice.
void convertValues(OldLines lines, std::span<const KeyMapping> mappings, ValueOf valueOf,
                   LineCollector& section) noexcept;

/// The section that consists of `heading` and the converted values: see SectionConverter.
[[nodiscard]] char** valueSection(const char* heading, OldLines lines,
                                  std::span<const KeyMapping> mappings, ValueOf valueOf) noexcept;

/// The old value field: 8 characters from column 10, trimmed.
[[nodiscard]] HeapText valueField(const KeyMapping& mapping, const char* line) noexcept;
