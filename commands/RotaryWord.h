#pragma once

#include "commands/AxisWords.h"
#include "commands/RotaryWay.h"

#include <array>
#include <optional>

/// What a block says of one rotary axis, degrees.
struct RotaryWord {
    AxisValue value;
    bool isMinus = false;         ///< written with a minus, also in front of 0
    std::optional<RotaryWay> way; ///< of the word itself, whatever the dialect's
};

using RotaryValues = std::array<std::optional<RotaryWord>, 2>;
