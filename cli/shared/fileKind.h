#pragma once

#include <string>
#include <string_view>

/// The first bytes of a file, from which its kind is told; empty when it cannot be read or is no
/// regular file.
[[nodiscard]] std::string headOf(const char* fileName);

/// Whether a file begins as a parameter file of the current format, and no program, does.
[[nodiscard]] bool looksLikeParameterFile(std::string_view head) noexcept;

/// Whether most lines of a file begin as blocks of programs do, and it cannot be a parameter file
/// of either generation.
[[nodiscard]] bool looksLikeProgram(std::string_view head) noexcept;
