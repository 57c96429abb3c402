#include "commands/Comment.h"

#include <cstring>

namespace {

bool isEmpty(const TextCopy& text) noexcept { return text == nullptr || text[0] == '\0'; }

} // namespace

Comment::~Comment() = default;

void Comment::InitCommentStart(const char* start) noexcept {
    if (start != nullptr) {
        m_start = copyText(start);
    }
}

void Comment::InitCommentEnd(const char* end) noexcept {
    if (end != nullptr) {
        m_end = copyText(end);
    }
}

// The first byte behind the comment that begins at `comment`, or null when it is not closed. The
// end text may overlap the start text ("(*)" is a whole comment for "(*" and "*)"), but it never
// is the start itself: a comment between two "*" has to end.
char* Comment::findEnd(char* comment) const noexcept {
    if (isEmpty(m_end)) {
        return nullptr;
    }
    char* end = std::strstr(comment, m_end.get());
    if (end == comment) {
        end = std::strstr(comment + std::strlen(m_start.get()), m_end.get());
    }
    return end == nullptr ? nullptr : end + std::strlen(m_end.get());
}

int Comment::KillComments(char* line) const noexcept {
    if (line == nullptr || isEmpty(m_start)) {
        return 0;
    }
    char* comment = std::strstr(line, m_start.get());
    if (comment == nullptr) {
        return 0;
    }
    char* write = comment;
    while (comment != nullptr) {
        char* const kept = findEnd(comment);
        if (kept == nullptr) {
            break;
        }
        comment = std::strstr(kept, m_start.get());
        const std::size_t length =
            comment == nullptr ? std::strlen(kept) : static_cast<std::size_t>(comment - kept);
        std::memmove(write, kept, length);
        write += length;
    }
    *write = '\0';
    return 0;
}
