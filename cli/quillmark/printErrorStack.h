#pragma once

#include <cstdio>

/// Prints a line for each failure of the macro interpreter on the error stack, and empties the
/// stack. Asks no catalogue, so the message layer ends nothing. Needs no memory.
void printErrorStack(std::FILE* stream) noexcept;
