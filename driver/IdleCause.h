#pragma once

/// Why a program may not have moved at all.
enum class IdleCause {
    kNone,            ///< it moved, or it is empty
    kOnlySubprograms, ///< it only defines subprograms, which another program calls
    kWideCharacters,  ///< UTF-16 by its first bytes
    kCompressed,      ///< gzip by its first bytes
    kSmallLetters,    ///< its words are those of the dialect, but in lower case
    kComments,        ///< what the dialect takes for comments or for nothing is all of it
    kNoWord,          ///< its first 100 lines hold no word of the dialect
    kUnknown,
    kCount
};
