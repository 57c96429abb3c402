#pragma once

#include <string>
#include <vector>

/// What one line of a program says, without what is no word of it.
struct BlockText {
    std::string words;                 ///< trimmed; empty when there are none
    std::vector<std::string> comments; ///< their texts, trimmed, in order; empty ones left out
    std::string programName;           ///< when the block names the program
    bool isProgramName = false;        ///< nothing of `words` counts as a word then
    bool isFrame = false;              ///< the line is the frame's text and nothing else
    bool hasSkipMark = false;          ///< the mark itself is no longer in `words`
    bool hasOpenComment = false;       ///< a comment lacks its end
};
