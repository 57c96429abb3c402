#pragma once

#include <cstdio>
#include <memory>

/// `CharFeld`: a heap array of heap strings, ended by a null entry, without a header. Array and
/// strings come from malloc and belong to whoever holds the array; freeCharFeld releases both.

/// Appends a copy of `string` and returns the array, which may have moved. `array` may be null.
/// `count`, when given and not negative, is trusted as the number of entries and is increased;
/// otherwise the entries are counted. With no entries a fresh array is made, even when an array was
/// passed in: that one is not reused. That is wanted: callers pass null with a count of 0.
/// The capacity is not stored: one array takes one of these three functions only, and an array of
/// another origin (fp2CharFeld) only this one, which makes room on every call.
/// On exhausted memory a line goes to standard error, the old array is released and null returned.
[[nodiscard]] char** addCharFeld(char** array, int* count, const char* string) noexcept;
/// The same, growing by 20 slots at a time.
[[nodiscard]] char** addCharFeld20(char** array, int* count, const char* string) noexcept;
/// The same, growing by 200 slots at a time.
[[nodiscard]] char** addCharFeld200(char** array, int* count, const char* string) noexcept;
/// The worker of the three: grows by `increment` slots (at least 1) at a time.
[[nodiscard]] char** addCharFeld_internal(char** array, int* count, const char* string,
                                          int increment) noexcept;

/// Reads the rest of `file` into a new array, one entry per line of any length. The newline is not
/// kept, a carriage return is; a last line without a newline counts, an empty last line does not.
/// A NUL byte ends its line's text early. A read error ends the reading like the end of the file;
/// ask ferror. When memory is exhausted, a line goes to standard error, errno is ENOMEM, and what
/// was read so far is returned (null without an array).
[[nodiscard]] char** fp2CharFeld(std::FILE* file) noexcept;

/// fp2CharFeld of the named file, or null after two lines on standard error when it cannot be
/// opened.
[[nodiscard]] char** file2CharFeld(const char* name) noexcept;

/// Releases the array and its strings; null is ignored. Returns null, for `a = freeCharFeld(a)`.
char** freeCharFeld(char** array) noexcept;

/// The number of entries before the null entry; 0 for a null array.
[[nodiscard]] int sizeofCharFeld(char* const* array) noexcept;

/// Prints the entries on standard error between two frame lines; returns their number.
int debugCharFeld(const char* caller, char* const* array) noexcept;

/// Owns an array within a scope.
struct CharFeldDeleter {
    void operator()(char** array) const noexcept { freeCharFeld(array); }
};
using CharFeldOwner = std::unique_ptr<char*, CharFeldDeleter>;
