#pragma once

#include "driver/NCScan.h"

#include <cstdio>

/// The names on the command line that a return code can speak of; each may be null.
struct ConversionFiles {
    const char* parameter = nullptr;
    const char* nc = nullptr;
    const char* output = nullptr;
    const char* log = nullptr;
};

/// Prints the one line in which `program` tells a user about a failed conversion: code, meaning,
/// file, and the reason, or what helps when no reason is known. Needs no memory: it may just have
/// run out.
void printErrorLine(std::FILE* stream, const char* program, int code, const ConversionFiles& files,
                    const Failure& failure) noexcept;
