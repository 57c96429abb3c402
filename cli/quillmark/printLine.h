#pragma once

#include <cstdio>
#include <string_view>

/// Prints the number of a line and, when `file` is not empty and so not the main program, the file
/// in which it stands: "12 of 'drill.ngc'".
void printLine(std::FILE* stream, long line, std::string_view file) noexcept;
