#pragma once

#include <span>

/// What the plain lines at the top of a current-format file say about the coding of the rest. A
/// file is a `CharFeld`, one entry per line without its line end.

/// The lines up to and including the one that begins with "##### Toolmachine Section". Without that
/// line there is no coded part, and the head is the whole file.
[[nodiscard]] std::span<char* const> plainHead(char* const* lines) noexcept;

/// Whether the head ends with that line.
[[nodiscard]] bool hasSectionLine(std::span<char* const> head) noexcept;

/// Whether `line` is a "#FILE:" line.
[[nodiscard]] bool isFileLine(const char* line) noexcept;

/// Whether `line` is a "#FILE:" line that says "UNCODED" or "uncoded".
[[nodiscard]] bool marksPlainFile(const char* line) noexcept;

/// Whether a line of the head marks the file as plain.
[[nodiscard]] bool saysPlain(std::span<char* const> head) noexcept;
