#pragma once

#include <string_view>

/// Prints the one line on standard error in which `program` tells of a failure with the file
/// `name`. Needs no memory: it may just have run out.
void printFileError(const char* program, std::string_view name, std::string_view text) noexcept;
