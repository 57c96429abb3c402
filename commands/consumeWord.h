#pragma once

#include <optional>

class MachineStatus;
class Parameter;

/// Takes a value word (feed, speed, tool) out of the block and gives its value; the word counts as
/// consumed. Nothing when the word is null or does not stand on the block.
[[nodiscard]] std::optional<double> consumeWord(Parameter* word, char* line, MachineStatus* status);
