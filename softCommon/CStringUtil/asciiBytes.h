#pragma once

/// Character classes on bytes, independent of the host's locale. Bytes 0x80 to 0xFF belong to no
/// class: a letter of a national code page never separates or joins NC words.

[[nodiscard]] constexpr bool isDigitByte(char c) noexcept { return c >= '0' && c <= '9'; }

[[nodiscard]] constexpr bool isUpperByte(char c) noexcept { return c >= 'A' && c <= 'Z'; }

[[nodiscard]] constexpr bool isLetterByte(char c) noexcept {
    return isUpperByte(c) || (c >= 'a' && c <= 'z');
}

/// `c` as a lower-case letter when it is an upper-case one, else `c` unchanged.
[[nodiscard]] constexpr char toLowerByte(char c) noexcept {
    return isUpperByte(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

/// `c` as a capital letter when it is a small one, else `c` unchanged.
[[nodiscard]] constexpr char toUpperByte(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Blanks of a program's text: what parts words and is trimmed.
[[nodiscard]] constexpr bool isBlankByte(char c) noexcept { return c == ' ' || c == '\t'; }

/// What a name goes on with.
[[nodiscard]] constexpr bool isNameByte(char c) noexcept {
    return isLetterByte(c) || isDigitByte(c) || c == '_';
}
