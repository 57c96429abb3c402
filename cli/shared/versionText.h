#pragma once

#include <cstdio>

/// Prints the answer of `program` to --version: its version and the banner of the library.
void printVersion(std::FILE* stream, const char* program) noexcept;
