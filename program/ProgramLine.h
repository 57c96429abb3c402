#pragma once

#include "macro/MacroError.h"
#include "program/Statement.h"
#include "text/BlockText.h"

#include <optional>
#include <string>
#include <vector>

/// One line of a program, read once.
struct ProgramLine {
    BlockText text;
    bool isPlain = false;   ///< words alone, without anything to compute: no statements then
    bool isLeftOut = false; ///< by the operator's switch
    std::optional<Expression> condition; ///< under which the statements are executed
    std::vector<Statement> statements;
    std::optional<long> blockNumber;
    std::string label; ///< that jumps name; empty for none
    int code = 0;      ///< of what made it unreadable; told when the line is executed
    MacroError error;  ///< of that code
};
