#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Prints a text of the NC file or the name of a file. Control characters, those that set the
/// direction of writing or break lines, and all bytes that belong to no valid UTF-8 sequence come
/// as "\xNN": a terminal must not act on them.
void printText(std::FILE* stream, std::string_view text) noexcept;

/// The same for a text that may be long: prints 200 characters of it at most, and then "...".
void printBeginning(std::FILE* stream, std::string_view text) noexcept;

/// The text as printText prints it. May throw std::bad_alloc.
[[nodiscard]] std::string printableText(std::string_view text);
