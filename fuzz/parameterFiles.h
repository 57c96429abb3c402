#pragma once

#include "paramfile/Key.h"

#include <span>
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

/// A dialect that comes with the system, without its remarks and lists of codes that do not move,
/// and with so few blocks to a program that a loop without an end is over at once.
[[nodiscard]] std::string bundledDialect(const std::string& name);

/// The text without the digits of its numbers behind the third: long ways and many turns take their
/// time and show nothing else.
[[nodiscard]] std::string withShortNumbers(std::string_view text);

/// Entries of a parameter file. Each line of the text is one: the name of a key, a blank and the
/// value; a line without the name of a key is a value alone, and its first byte chooses the key.
/// The entries end at an empty line, and `text` then begins behind that.
[[nodiscard]] std::string takeEntries(std::string_view& text, std::span<const Key> keys);
