#pragma once

/// How a dialect tells words from other text of a block.
enum class WordRule : unsigned char {
    kPlain,      ///< no letter stands before a word
    kStrict,     ///< nor an underscore, nor a comma that belongs to it, nor an open quotation mark;
                 ///< "M1=3" is not M1, "G91.1" is not G91
    kStrictNames ///< and names of two letters or more hold no words: "MAX1" has no X
};
