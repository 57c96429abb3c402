#include "commands/Comment.h"

#include "commands/wordMatcher.h"

#include <cstring>

Comment::~Comment() = default;

void Comment::InitCommentStart(const char* start) noexcept {
    if (start != nullptr) {
        m_start = TextCopy(start);
    }
}

void Comment::InitCommentEnd(const char* end) noexcept {
    if (end != nullptr) {
        m_end = TextCopy(end);
    }
}

// The first byte behind the comment that begins at `comment`, or null when it is not closed. The
// end text may overlap the start text ("(*)" is a whole comment for "(*" and "*)"), but it never
// is the start itself: a comment between two "*" has to end.
char* Comment::findEnd(char* comment) const noexcept {
    if (m_end.empty()) {
        return nullptr;
    }
    char* end = findText(comment, m_end);
    if (end == comment) {
        end = findText(comment + m_start.size(), m_end);
    }
    return end == nullptr ? nullptr : end + m_end.size();
}

bool Comment::Cut(char* line, const ByteSet& bytes) noexcept {
    m_wasUnterminated = false;
    if (line == nullptr || m_start.empty() || !bytes.MayContain(m_start.front())) {
        return false;
    }
    char* comment = findText(line, m_start);
    if (comment == nullptr) {
        return false;
    }
    char* write = comment;
    while (comment != nullptr) {
        char* const kept = findEnd(comment);
        if (kept == nullptr) {
            // Without an end text in the dialect, the end of the block is the regular end.
            m_wasUnterminated = !m_end.empty();
            break;
        }
        comment = findText(kept, m_start);
        const std::size_t length =
            comment == nullptr ? std::strlen(kept) : static_cast<std::size_t>(comment - kept);
        std::memmove(write, kept, length);
        write += length;
    }
    *write = '\0';
    return true;
}
