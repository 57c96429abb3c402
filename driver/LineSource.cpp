#include "driver/LineSource.h"

#include "driver/returnCodes.h"
#include "softCommon/CStringUtil/string_mani.h"

bool LineSource::Next(Block& block) {
    std::string_view piece;
    if (!m_lines.Next(piece)) {
        return false;
    }
    Block::Place place;
    place.continuesLine = m_isLineBroken;
    place.isLineEnd = piece.front() == '\n' || piece.front() == '\r';
    m_line += m_isLineBroken ? 0 : 1;
    place.line = m_line;
    place.number = ++m_number;
    const bool hasNewline = piece.back() == '\n';
    m_isLineBroken = piece.size() == LineReader::kMostBytes && !hasNewline;
    piece.remove_suffix(hasNewline ? 1 : 0);
    // The bytes tell which searches can be left out.
    const ByteSet bytes = ByteSet::Of(piece);
    if (bytes.MayContain('\0')) {
        const std::size_t nul = piece.find('\0');
        place.isCutAtNul = nul != std::string_view::npos;
        piece = piece.substr(0, nul);
    }
    const std::string_view text =
        bytes.MayContain('\r') ? trimmed(piece) : withoutOuterBlanks(piece);
    block.Begin(text, bytes, place);
    return true;
}

int LineSource::Code() const noexcept { return m_lines.HasFailed() ? int{kNCFileUnreadable} : 0; }

Failure LineSource::LastFailure() const noexcept {
    return {.systemError = m_lines.HasFailed() ? m_lines.Error() : 0};
}
