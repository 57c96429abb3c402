#pragma once

#include <cstddef>
#include <string_view>

/// Trims, cuts or unquotes `string` in place. Only the space character counts as a blank. A null
/// string and any code not listed are left alone.
///
/// | code | operation |
/// |---|---|
/// | 0 | cut at the first newline or carriage return |
/// | 1 | remove trailing blanks |
/// | 2 | remove leading blanks |
/// | 3 | 2, then 0, then 1: the standard trim of the whole system |
/// | 4 | keep what stands between an opening `'` and the next `'` (or the end of the string) |
/// | 5 | remove leading blanks and cut at the line end; without a line end the old end stays where
///       it was, so the last characters appear twice. That is wanted: callers know it. |
void string_mani(int code, char* string) noexcept;

/// Operation 3 of string_mani, which also tells the length of what is left.
std::size_t trimText(char* string) noexcept;

/// The same for the first `length` bytes of `string`, none of which is a newline.
std::size_t trimText(char* string, std::size_t length) noexcept;

/// `text` without the blanks at both ends.
[[nodiscard]] inline std::string_view withoutOuterBlanks(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

/// The part of `text`, none of whose bytes is a newline, that trimText would leave.
[[nodiscard]] inline std::string_view trimmed(std::string_view text) noexcept {
    return withoutOuterBlanks(text.substr(0, text.find('\r')));
}
