#include "path/WholeLines.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

bool WholeLines::Next(std::string_view& line) {
    if (!takeLine(line)) {
        return false;
    }
    if (m_number == 1 && line.starts_with(kByteOrderMark)) {
        line.remove_prefix(kByteOrderMark.size());
    }
    return true;
}

bool WholeLines::takeLine(std::string_view& line) {
    if (!m_reader.Next(line)) {
        return false;
    }
    ++m_number;
    m_isTooLong = false;
    if (line.back() == '\n') {
        line = withoutEnd(line);
        return true;
    }
    m_collected.clear();
    std::string_view piece = line;
    do {
        collect(piece);
    } while (piece.back() != '\n' && m_reader.Next(piece));
    m_hasEnd = piece.back() == '\n';
    line = m_hasEnd && !m_isTooLong ? withoutEnd(m_collected) : std::string_view(m_collected);
    return true;
}

std::string_view WholeLines::withoutEnd(std::string_view piece) noexcept {
    m_hasEnd = true;
    piece.remove_suffix(1);
    if (piece.ends_with('\r')) {
        piece.remove_suffix(1);
    }
    return piece;
}

void WholeLines::collect(std::string_view piece) {
    if (m_collected.size() + piece.size() > kLongest) {
        m_isTooLong = true;
    } else {
        m_collected += piece;
    }
}
