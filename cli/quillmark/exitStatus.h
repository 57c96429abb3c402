#pragma once

/// Exit statuses of the front end's own. No return code of a conversion has them as its low 8 bits,
/// but for those of signals.
enum : int {
    kExitUsage = 2,    ///< its options are wrong, or the report or the view cannot be made
    kExitDoubtful = 3, ///< --strict, and text was not recognised, or there was a warning
    kExitSignal = 128  ///< and the number of the signal that stopped the conversion
};
