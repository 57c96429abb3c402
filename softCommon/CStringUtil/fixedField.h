#pragma once

/// Fixed fields: character fields of a known width, padded with blanks on the right, without a
/// terminating NUL.

/// Copies at most `width` characters of `source` into `field` and fills the rest of the field with
/// blanks. Nothing is copied from a null or empty source. No NUL is written.
void s2fcpy(char* field, const char* source, unsigned width) noexcept;

/// Returns the first `width` characters of `field` (fewer when a NUL comes first) as a new heap
/// string that the caller frees; trailing blanks are kept. It always holds `width` + 1 bytes, the
/// unused ones 0, so that the caller may fill the field. A width of 0 or less gives an empty
/// string. Returns null after a message on standard error when memory is exhausted.
[[nodiscard]] char* s2ccpy(const char* field, int width) noexcept;
