#pragma once

#include <cstdio>

/// Prints the answer to --help: usage, the other spellings of the options, the return codes.
void printHelp(std::FILE* stream, const char* usage) noexcept;
