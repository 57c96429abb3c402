#pragma once

#include "commands/AxisWords.h"
#include "softCommon/Boolean.h"

#include <span>
#include <vector>

/// What the axis words of a block say, for a command that reads them more than once: reading
/// consumes them.
class HeldWords {
public:
    /// Keeps those of the words that the block has. Throws std::bad_alloc.
    void Hold(std::span<const AxisWords> axes);
    /// Has them stand on the block again, as they were held.
    void Restore() const noexcept;

private:
    struct Word {
        Parameter* word;
        double value;
        Boolean isIncremental;
    };

    std::vector<Word> m_words; // the words are not owned
};
