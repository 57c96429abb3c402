#pragma once

#include "paramfile/codeOldLine.h"
#include "softCommon/CStringUtil/CharFeld.h"

#include <string>
#include <vector>

/// A `CharFeld` as tests like it.
using Texts = std::vector<std::string>;

inline CharFeldOwner fieldOf(const Texts& texts) {
    CharFeldOwner lines;
    int count = 0;
    for (const std::string& text : texts) {
        lines.reset(addCharFeld200(lines.release(), &count, text.c_str()));
    }
    return lines;
}

/// The entries of `lines`, which are released.
inline Texts taken(char** lines) {
    const CharFeldOwner owner(lines);
    return {lines, lines + sizeofCharFeld(lines)};
}

/// The three physical lines of a line of an old parameter file, each with `end` behind it; texts
/// that cannot be coded give empty ones.
inline std::string codedOld(const std::string& plain, const char* end = "") {
    OldPhysicalLines physical;
    (void)codeOldLine(plain.c_str(), physical);
    return physical.first.data() + std::string(end) + physical.second.data() + end +
           physical.third.data() + end;
}
