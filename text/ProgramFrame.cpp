#include "text/ProgramFrame.h"

ProgramFrame::Answer ProgramFrame::accept(const BlockText& text, bool holdsWord) noexcept {
    const bool isInside = m_isOpen || m_hasWord;
    if (text.isFrame) {
        m_isOpen = true;
        return isInside ? Answer::kEnds : Answer::kOpens;
    }
    m_hasWord |= holdsWord;
    return isInside || holdsWord ? Answer::kBlock : Answer::kUndecided;
}
