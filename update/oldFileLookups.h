#pragma once

#include "update/OldLines.h"

/// Lookups in the lines of an old file. Each takes linear time. All but gibIndex_tdb are those of
/// converters: what they find counts as taken over.

/// The first line whose first 8 characters equal those of `key`, or null. Not owned.
[[nodiscard]] const char* suche_paramter(OldLines lines, const char* key) noexcept;

/// The index of the first line that begins with all of `key`, or -1.
[[nodiscard]] int gibIndex_tdb(char* const* lines, const char* key) noexcept;

/// Indices of the lines of one block; empty when `first` equals `end`.
struct BlockRange {
    int first = 0;
    int end = 0;
};

/// The block of the first line with `key`: the lines behind it up to the next key line.
[[nodiscard]] BlockRange findBlock(OldLines lines, const char* key) noexcept;

/// A copy of the lines of findBlock as a new `CharFeld`, or null when there are none or, after a
/// message on standard error, when memory is exhausted.
[[nodiscard]] char** suche_blk(OldLines lines, const char* key) noexcept;
