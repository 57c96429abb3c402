#pragma once

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
