#pragma once

#include <string>
#include <string_view>

/// Dialects that name every kind of word: a mill with a decimal point, comments, block numbers,
/// incremental addresses and a tool axis; a lathe with implied decimal places, swapped axes and
/// diameter programming.
extern const std::string_view kMill;
extern const std::string_view kLathe;

/// The bytes of a parameter file. Input behind the line "CODE OLD" is plain text that is coded as
/// the older generation stores it, behind "CODE NEW" as the current one does; mutations of coded
/// lines alone would seldom get past their check digits. Any other input is the file itself.
[[nodiscard]] std::string parameterFileOf(std::string_view input);
