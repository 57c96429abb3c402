#pragma once

#include "text/BlockText.h"

/// Follows the frame ("%") of one file: what stands before it opens and behind its end is no
/// program.
class ProgramFrame {
public:
    enum class Answer {
        kBlock,     ///< the line belongs to the program
        kUndecided, ///< it holds no word, and a frame may still open behind it
        kOpens,     ///< the line is the frame: undecided lines before it do not count
        kEnds       ///< the line closes the frame, and nothing behind it counts
    };

    /// Takes the next line of the file. `holdsWord` says whether it holds a word of the dialect.
    [[nodiscard]] Answer accept(const BlockText& text, bool holdsWord) noexcept;

private:
    bool m_isOpen = false;
    bool m_hasWord = false;
};
