#pragma once

#include <string_view>

/// Takes the next word off the front of `text`, with the blanks before it, and returns it; empty
/// when only blanks are left. A word is letters with the number behind them ("G54.1", "R-5,25");
/// the point and `separator`, the dialect's own one (NUL for none), may stand in the number. Where
/// no such word begins, all up to the next blank is one. Space and tab are blanks.
[[nodiscard]] std::string_view takeWord(std::string_view& text, char separator) noexcept;
