#pragma once

#include <string>

/// The answer to --help: usage, the other spellings of the options, the return codes.
[[nodiscard]] std::string helpText(const char* usage);
