#pragma once

#include <string>

/// The names on the command line that a return code can speak of; each may be null.
struct ConversionFiles {
    const char* parameter = nullptr;
    const char* nc = nullptr;
    const char* output = nullptr;
    const char* log = nullptr;
};

/// The one line, without a newline, that tells a user about a failed conversion: code, meaning,
/// file, and `reason`, or what helps when the reason is null.
[[nodiscard]] std::string errorLine(int code, const ConversionFiles& files, const char* reason);
