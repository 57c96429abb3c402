#pragma once

#include <array>
#include <optional>

class Control;
class MachineStatus;

/// What the words of a block say of an arc, where arcs are computed.
struct ArcWords {
    struct Centre {
        double value = 0.0;
        bool isIncremental = false; ///< it counts from the start of the arc
        bool isMarked = false;      ///< the word itself says whether it does
    };
    std::array<std::optional<Centre>, 3> centre;
    std::optional<double> radius;
    std::optional<double> turnsBegun;
    std::optional<double> turnsMore;

    /// Turns alone make no arc.
    [[nodiscard]] bool IsEmpty() const noexcept {
        return !radius && !centre[0] && !centre[1] && !centre[2];
    }
};

/// Takes them out of the block.
[[nodiscard]] ArcWords takeArcWords(char* line, Control& control, MachineStatus& status);
