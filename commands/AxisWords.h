#pragma once

#include "commands/Parameter.h"

#include <array>
#include <optional>

/// The coordinate words of one axis; a null parameter means that the dialect has no such word. Not
/// owned.
struct AxisWords {
    Parameter* incremental = nullptr;
    Parameter* absolute = nullptr;
};

/// What a block says of one axis, for a command to which the axis words of its block belong.
struct AxisValue {
    double value = 0.0;         ///< as programmed
    bool isIncremental = false; ///< by its address or its mark, whatever the mode
    bool isAbsolute = false;    ///< by its mark, whatever the mode
};
using AxisValues = std::array<std::optional<AxisValue>, 3>;

/// The value of a word that was found.
[[nodiscard]] inline AxisValue valueOf(Parameter& word) noexcept {
    return {.value = word.GetValue(),
            .isIncremental = word.GetIncStatus() == TRUE,
            .isAbsolute = word.IsExplicit() && word.GetIncStatus() != TRUE};
}

/// Whether an axis has both of its words in the block.
[[nodiscard]] bool isGivenTwice(const std::array<AxisWords, 3>& axes) noexcept;

/// The words of the axes that were found and not used yet; they are consumed. The absolute word of
/// an axis wins.
[[nodiscard]] AxisValues takeFound(const std::array<AxisWords, 3>& axes) noexcept;
