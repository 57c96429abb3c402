#pragma once

#include "commands/TextCopy.h"
#include "commands/WordRule.h"

/// The three steps by which every recogniser finds an NC word in a block and takes it out.

/// The first occurrence of `text`, which is not empty, at or after `from`; null when there is none.
/// Most texts of a dialect are one byte, and that search is the cheaper one.
[[nodiscard]] char* findText(char* from, const TextCopy& text) noexcept;

/// The first occurrence of `syntax` at or after `from` that begins a word: it stands at the start
/// of the block, or no letter stands before it. Case-sensitive. `from` points into `block`.
/// Returns null when there is none; a null or empty syntax has none.
[[nodiscard]] char* findWord(char* block, char* from, const TextCopy& syntax) noexcept;

/// The same by one of the stricter rules. `token` is where the walk over the block stands: the
/// block at first, and what the call before left in it for a later `from`. So all places of a block
/// are found in a time that is linear in its length.
[[nodiscard]] char* findStrictWord(char* block, char* from, const TextCopy& syntax, WordRule rule,
                                   const char*& token) noexcept;

/// The one of these that the rule asks for.
[[nodiscard]] inline char* findWordBy(WordRule rule, char* block, char* from,
                                      const TextCopy& syntax, const char*& token) noexcept {
    return rule == WordRule::kPlain ? findWord(block, from, syntax)
                                    : findStrictWord(block, from, syntax, rule, token);
}

/// Whether a name of two letters or more begins at `text`, as opposed to a letter with its number.
[[nodiscard]] bool isNameStart(const char* text) noexcept;

/// The first position at or after `p` that is not a decimal digit. Signs, separators and blanks
/// end the run.
[[nodiscard]] char* skipDigits(char* p) noexcept;

/// Removes the bytes from `first` up to `last` from the text by moving the rest, with its end, left
/// over them. No blank is left behind.
void cutOut(char* first, const char* last) noexcept;
