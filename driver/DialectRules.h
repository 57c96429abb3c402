#pragma once

#include "commands/PassedWords.h"
#include "text/TextRules.h"

#include <string>
#include <vector>

class Command;

/// What a parameter file says of programs as a whole, beside the commands and words of its model.
struct DialectRules {
    TextRules text;
    PassedWords passed;
    std::vector<std::string> startCodes;     ///< in force before the first block
    std::vector<const Command*> programEnds; ///< owned by the model
    std::vector<long> followingCodes;        ///< G codes that follow a part of the program
    bool printsTexts = false;                ///< comments and names go into the APT
    bool isLathe = false;                    ///< arcs lie in the plane ZX, else in XY
    long mostBlocks = 10'000'000;            ///< of a program that computes
};
