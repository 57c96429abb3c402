#pragma once

#include "paramfile/codingOption.h"

#include <cstddef>
#include <span>

/// The line coder of the older generation of parameter files. Every record starts its own
/// generator, so a record decodes without those before it.

/// Plain characters of one old line, blanks on the right included.
inline constexpr std::size_t kOldLineLength = 80;
/// Characters of its coded record.
inline constexpr std::size_t kOldRecordLength = 161;

/// Codes `line` into `record` (`activity` 1) or decodes `record` into `line` (2). A record is one
/// longer than twice its line; neither has a terminating NUL. Returns 0 or a CoderResult after a
/// message on standard error; the target of a failed call means nothing.
[[nodiscard]] int vxveh(int activity, std::span<char> line, std::span<char> record) noexcept;

/// vxveh with the sizes of an old file and the options of codingOption.h.
[[nodiscard]] int pp_vxveh(int option, std::span<char, kOldLineLength> line,
                           std::span<char, kOldRecordLength> record) noexcept;
