#include "driver/LineSource.h"

#include "driver/returnCodes.h"
#include "softCommon/CStringUtil/string_mani.h"

bool LineSource::Next(Block& block) {
    std::string_view piece;
    if (!m_lines.Next(piece)) {
        return false;
    }
    ++m_place.number;
    m_place.line += m_isLineBroken ? 0 : 1;
    m_place.continuesLine = m_isLineBroken;
    m_place.isLineEnd = piece.front() == '\n' || piece.front() == '\r';
    const bool hasNewline = piece.back() == '\n';
    m_isLineBroken = piece.size() == LineReader::kMostBytes && !hasNewline;
    piece.remove_suffix(hasNewline ? 1 : 0);
    const std::size_t nul = piece.find('\0');
    m_place.isCutAtNul = nul != std::string_view::npos;
    block.Begin(trimmed(piece.substr(0, nul)), m_place);
    return true;
}

int LineSource::Code() const noexcept { return m_lines.HasFailed() ? int{kNCFileUnreadable} : 0; }

Failure LineSource::LastFailure() const noexcept {
    return {.systemError = m_lines.HasFailed() ? m_lines.Error() : 0};
}
