#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

/// Key and value lines of a parameter file, in order. An address takes its two format lines with
/// it: `{"FEEDRATE", "F\n1\nM5.3"}`.
using Entries = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// The first lines of every plain parameter file.
inline constexpr std::string_view kHeader =
    "##### Header\n#FILE:       UNCODED\n#VERSION:    V1R5\n##### Toolmachine Section\n";

/// A plain parameter file with these entries alone.
[[nodiscard]] std::string dialectOf(Entries entries);

/// A mill: decimal point, comments in parentheses, block numbers, incremental centres, G and M
/// codes, no tool axis. `entries` come behind its own, so the same key there wins.
[[nodiscard]] std::string mill(Entries entries = {});

/// A lathe with the same words, configured by the keys of lathes, with its centres in ZX.
[[nodiscard]] std::string lathe(Entries entries = {});
