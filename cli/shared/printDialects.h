#pragma once

#include <cstdio>

/// Prints the dialects that are ready to use, each on a line with what it is for. Returns whether
/// there are any; else after a line of `program` on standard error.
[[nodiscard]] bool printDialects(std::FILE* stream, const char* program);

/// When a name that leads to no file comes near that of a dialect, prints a line that says so.
void printNearestDialect(std::FILE* stream, const char* program, const char* name);
