#pragma once

#include <cstddef>
#include <span>
#include <string_view>

enum class NumberFault { kNone, kMissing, kNotANumber, kTooLarge, kTooMany, kFollowed };

/// What is wrong, for a message.
[[nodiscard]] const char* textOf(NumberFault fault) noexcept;

/// Reads the numbers of a statement, apart by commas with blanks around them, from the start of
/// `text` up to its end or to a ")", which stays, and cuts them off. There is at least one and at
/// most as many as there is room; `count` tells how many. All are finite, and none is larger than
/// any machine. Where something is wrong, values and count are undefined and the text stays.
[[nodiscard]] NumberFault readNumbers(std::string_view& text, std::span<double> values,
                                      std::size_t& count) noexcept;
