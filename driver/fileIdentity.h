#pragma once

#include <cstdio>

/// Whether both names lead to the same existing regular file, links followed. Null and missing
/// names lead to none.
[[nodiscard]] bool isSameRegularFile(const char* left, const char* right) noexcept;

/// The same for open streams; null is none.
[[nodiscard]] bool isSameRegularFile(std::FILE* left, std::FILE* right) noexcept;
[[nodiscard]] bool isSameRegularFile(std::FILE* left, const char* right) noexcept;

/// Whether the open stream is a directory, which opens but cannot be read.
[[nodiscard]] bool isDirectory(std::FILE* file) noexcept;
