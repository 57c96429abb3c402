#pragma once

#include "commands/TextCopy.h"

/// The three steps by which every recogniser finds an NC word in a block and takes it out.

/// The first occurrence of `text`, which is not empty, at or after `from`; null when there is none.
/// Most texts of a dialect are one byte, and that search is the cheaper one.
[[nodiscard]] char* findText(char* from, const TextCopy& text) noexcept;

/// The first occurrence of `syntax` at or after `from` that begins a word: it stands at the start
/// of the block, or no letter stands before it. Case-sensitive. `from` points into `block`.
/// Returns null when there is none; a null or empty syntax has none.
[[nodiscard]] char* findWord(char* block, char* from, const TextCopy& syntax) noexcept;

/// The first position at or after `p` that is not a decimal digit. Signs, separators and blanks
/// end the run.
[[nodiscard]] char* skipDigits(char* p) noexcept;

/// Removes the bytes from `first` up to `last` from the text by moving the rest, with its end, left
/// over them. No blank is left behind.
void cutOut(char* first, const char* last) noexcept;
