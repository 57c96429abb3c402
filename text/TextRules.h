#pragma once

#include <string>
#include <vector>

/// The family of languages in which the programs of a dialect compute.
enum class ProgramLanguage { kNone, kOWord, kHash, kRParameter };

/// How the programs of a dialect write their blocks, as far as that is not the matter of single
/// words. Filled by the parameter file; the recognisers know nothing of it.
struct TextRules {
    ProgramLanguage language = ProgramLanguage::kNone;
    bool anyCase = false;       ///< letters count as capitals, outside of comments, names and texts
    bool ignoresBlanks = false; ///< inside numbers, and between letters and their number
    bool skipsBlocks = false;   ///< the operator's switch is on: blocks with a mark are left out
    bool endStops = false;      ///< the end of the program ends the reading
    bool isInUse = false;       ///< whether blocks need a TextReader at all

    char separator = '\0';    ///< the decimal one; 0: there is none
    std::string commentStart; ///< empty: there are none of this kind
    std::string commentEnd;   ///< empty: it lasts to the end of the block
    std::string recordNumber; ///< address of block numbers; empty: there are none
    std::vector<std::string> lineComments;
    std::vector<std::string> skipMarks;
    std::vector<std::string> frames;
    std::vector<std::string> programNames;
    std::vector<std::string> blockEnds;
};
