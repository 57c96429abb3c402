#pragma once

#include <optional>
#include <vector>

/// Takes the first bracket "(2,,-10)" out of a block with the numbers in it, none where one is left
/// out. A block without a bracket has no arguments. Returns false when something else stands there.
/// Throws std::bad_alloc.
[[nodiscard]] bool readArguments(char* line, std::vector<std::optional<double>>& arguments);
