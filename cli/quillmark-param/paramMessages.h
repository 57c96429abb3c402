#pragma once

#include <string_view>

inline constexpr int kParamDone = 0;
inline constexpr int kParamFailed = 1;
inline constexpr int kParamUsage = 2;

/// Prints the one line on standard error by which quillmark-param ends after a failure with the
/// file `name`, and returns kParamFailed. Needs no memory: it may just have run out.
int failWith(const char* name, std::string_view text);

/// Prints a warning about the file `name` on standard error.
void warnOf(const char* name, std::string_view text);
