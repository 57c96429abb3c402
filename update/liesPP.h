#pragma once

#include <cstdio>

/// Reads and decodes a parameter file of the older generation. Every plain line stands in three
/// physical lines of 80, 80 and 1 characters; empty lines between records are skipped.
///
/// Returns the lines as a new `CharFeld`, each 80 characters with the blanks on its right, and has
/// then closed `in`. Returns null after a message when the file is corrupt, cannot be read, or
/// memory is exhausted; `in` then stays open and the caller's. A file without a record gives an
/// array without lines.
[[nodiscard]] char** liesPP(std::FILE* in) noexcept;

/// Where its message about a record that cannot be decoded goes: to standard output unless a
/// program that writes something else there chooses another stream. Of the whole process.
void setLiesPPMessages(std::FILE* stream) noexcept;
