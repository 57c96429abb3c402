#pragma once

/// Split arrays have the shape of a `CharFeld` (heap array of heap strings, null entry at the end)
/// but grow in blocks of 20 pointers, and their count lives beside them.

/// Splits `string`, trimmed, at every one of the first `separatorCount` characters of `separators`.
/// There is no quoting: two adjacent separators give an empty field, blanks around a field are
/// removed. A separator listed twice ends two fields, the second one empty; that is wanted.
/// Stores the number of fields in `*count`. Returns null with a count of 0 for a null or empty or
/// all-blank string, a negative separator count, and, after a message on standard error, when
/// memory is exhausted.
[[nodiscard]] char** splitString(const char* string, const char* separators, int separatorCount,
                                 int* count) noexcept;

/// Appends a copy of `string` to a split array of `*count` entries and increases the count. Returns
/// the array, which may have moved; null, with the array released, when memory is exhausted.
[[nodiscard]] char** add_splitStringArray(char** array, const char* string, int* count) noexcept;

/// Releases the first `count` entries (null ones are skipped) and the array. With a count of 0 or
/// less the entries up to the null entry are released. A null array is ignored.
void free_splitStringArray(char** array, int count) noexcept;
