#pragma once

#include "commands/AxisWords.h"
#include "commands/WordList.h"

#include <array>
#include <optional>

/// The address words that several commands of a control share; none is owned.
struct ControlWords {
    std::array<AxisWords, 3> axes;
    std::array<Parameter*, 3> centres = {}; ///< null where the dialect has none
    WordList radius;
    WordList turnsBegun;
    WordList turnsMore;
    Parameter* feed = nullptr;  ///< null where the dialect has none
    Parameter* speed = nullptr; ///< likewise
    WordList dwellSeconds;
    WordList dwellMilliseconds;
    WordList dwellTurns;
    WordList speedLimit;
    WordList compensationRegister;
    WordList threadPitch;
    WordList tableKind;
    WordList tableNumber;
    WordList tableAngle;
    WordList frameAngle;
    WordList frameFactor;

    /// Takes the word of the speed out of the block, with its value.
    [[nodiscard]] std::optional<double> TakeSpeed(char* line, MachineStatus& status) const;
};
