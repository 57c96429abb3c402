#pragma once

#include "text/BlockText.h"
#include "text/TextRules.h"

#include <array>
#include <string_view>

/// Reads lines of a program by the rules of its dialect: takes comments, skip marks and printed
/// ends of blocks away, makes capitals of letters, and removes blanks that mean nothing.
class TextReader {
public:
    /// `rules` must outlive the reader and not change meanwhile.
    explicit TextReader(const TextRules& rules) noexcept;

    /// `line` has no line end and no NUL. `text` is filled anew; its buffers are used again.
    /// Throws std::bad_alloc.
    void read(std::string_view line, BlockText& text) const;

private:
    void readStart(BlockText& text) const;

    const TextRules& m_rules;
    std::array<bool, 256> m_isSpecial = {}; // bytes at which more than a character can begin
};
