#pragma once

#include <cstdint>
#include <string>

/// Checks of what contestants write. They throw a Failure, for files that cannot be read, too.

void requireSameBytes(const std::string& name, const std::string& expected);

/// The log holds its banner and a blank line, every block between line ends, and every statement.
/// The blocks of the benchmark are neither indented nor followed by blanks.
void requireWholeLog(const std::string& log, const std::string& nc, const std::string& apt);

/// The movements of an APT source, arcs among them, and those of what the interpreter writes.
[[nodiscard]] std::uint64_t countAptMoves(const std::string& apt);
[[nodiscard]] std::uint64_t countCanonicalMoves(const std::string& canon);
