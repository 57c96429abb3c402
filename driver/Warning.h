#pragma once

#include <cstddef>
#include <string>

/// A block that the report keeps: its place, and of its text what matters.
struct ReportedBlock {
    long line = 0;
    std::string text;
    std::string file = {}; ///< in which the line stands; empty for the main program
};

/// Something that a control may mean differently than the APT says.
struct Warning {
    enum class Kind : std::size_t {
        kUnknownGWord,       ///< the block holds a G word that was not recognised, yet it moved
        kArcWithoutCentre,   ///< the arc has no centre word, so its centre is taken to be its start
        kHelix,              ///< the end of the arc lies above or below its start
        kRadiiDiffer,        ///< the end of the arc is not on the circle of its start
        kTwoMovements,       ///< two movement codes: one acts, and the words of the other are lost
        kFractionBehindCode, ///< the code was recognised without its fraction: "G0.1"
        kTextBehindNumber,   ///< the number was read up to that text: "X10+5", "X1,5"
        kUnreadAxis,         ///< an axis word was left, yet the block moved
        kPlane,              ///< the code of another plane was not recognised
        kInch,               ///< a code that often means inches was not recognised
        kCycle,              ///< a code that often means a cycle was not recognised
        kCount
    };

    Kind kind = Kind::kUnknownGWord;
    ReportedBlock block; ///< with its whole text
    std::string word;    ///< that is meant, the first of its kind in the block; empty for an arc
};

/// Warnings of one kind and one word; where the word has a value, as that of an axis, of one
/// address.
struct WarningCause {
    Warning first;
    long count = 0;
};
