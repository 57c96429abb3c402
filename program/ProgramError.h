#pragma once

#include "macro/MacroError.h"

#include <string>

/// Why a program could not be run on.
struct ProgramError {
    int code = 0;     ///< return code of the conversion; 0 before there is a failure
    MacroError macro; ///< when its code is not 0, the failure of the interpreter behind it
    std::string text; ///< what was wrong, for a message
};
