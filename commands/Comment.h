#pragma once

#include "commands/ByteSet.h"
#include "commands/TextCopy.h"

/// Removes comments from a block before any recogniser sees it.
class Comment {
public:
    Comment() noexcept = default;
    Comment(const Comment&) = delete;
    Comment& operator=(const Comment&) = delete;
    virtual ~Comment();

    /// Store a copy of the text that opens (closes) a comment; null leaves the old one.
    void InitCommentStart(const char* start) noexcept;
    void InitCommentEnd(const char* end) noexcept;
    [[nodiscard]] const char* GetCommentStart() const noexcept { return m_start.get(); }
    [[nodiscard]] const char* GetCommentEnd() const noexcept { return m_end.get(); }

    /// Removes every comment from `line`; the text between comments stays. Without an end text, or
    /// without its occurrence, a comment runs to the end of the block. Comments do not nest.
    /// Returns 0; works in place, so it never runs out of memory.
    int KillComments(char* line) noexcept {
        (void)Cut(line, ByteSet::All());
        return 0;
    }
    /// The same for a line of known bytes: without the first byte of the start text, no search.
    /// Tells whether something was removed.
    bool Cut(char* line, const ByteSet& bytes) noexcept;
    /// Whether the last of these met a comment that lacks its end text.
    [[nodiscard]] bool WasUnterminated() const noexcept { return m_wasUnterminated; }

private:
    [[nodiscard]] char* findEnd(char* comment) const noexcept;

    TextCopy m_start;
    TextCopy m_end;
    bool m_wasUnterminated = false;
};
