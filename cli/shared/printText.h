#pragma once

#include <cstdio>
#include <string_view>

/// Prints a text of the NC file or the name of a file, its control bytes as "\xNN": a terminal must
/// not act on them.
void printText(std::FILE* stream, std::string_view text) noexcept;
