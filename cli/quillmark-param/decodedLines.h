#pragma once

#include <optional>
#include <string>
#include <vector>

/// The line by which decoding marks its result as plain.
inline constexpr const char* kPlainMark = "#FILE:       UNCODED";

/// The plain lines of a current-format file that holds the section line or a mark; `lines` is a
/// `CharFeld` and is decoded in place. None, after the message of the coder, when it is damaged.
[[nodiscard]] std::optional<std::vector<std::string>> decodedLines(char** lines);
