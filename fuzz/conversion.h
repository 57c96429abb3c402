#pragma once

#include <string_view>

/// Converts the program with the dialect, all files in memory, as dllentry does, and stops the
/// target when the result breaks a promise: an unknown code, a process end that is not deliberate,
/// a success with an output that is not in the log.
void convert(std::string_view parameters, std::string_view program);

/// The same for a dialect that follows a control: its output can be read back as far as it goes,
/// and holds numbers that are some.
void convertControl(std::string_view parameters, std::string_view program);
