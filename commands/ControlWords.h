#pragma once

#include "commands/AxisWords.h"
#include "commands/WordList.h"

#include <array>

/// The address words that several commands of a control share; none is owned.
struct ControlWords {
    std::array<AxisWords, 3> axes;
    std::array<Parameter*, 3> centres = {}; ///< null where the dialect has none
    WordList radius;
    WordList turnsBegun;
    WordList turnsMore;
    WordList tableKind;
    WordList tableNumber;
    WordList tableAngle;
    WordList frameAngle;
    WordList frameFactor;
};
