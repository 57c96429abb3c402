#include "update/OldLines.h"

#include "softCommon/CStringUtil/CharFeld.h"

#include <new>

void OldLines::take(int index) const noexcept {
    if (m_marks != nullptr) {
        m_marks[index].isTaken = true;
        if (const int source = m_marks[index].source; source >= 0) {
            m_marks[source].isTaken = true;
        }
    }
}

void OldLines::setSource(int index, int source) const noexcept {
    if (m_marks != nullptr) {
        m_marks[index].source = source;
    }
}

bool OldLines::isTaken(int index) const noexcept {
    return m_marks != nullptr && m_marks[index].isTaken;
}

std::unique_ptr<LineMark[]> newLineMarks(char* const* lines) noexcept {
    const auto count = static_cast<std::size_t>(sizeofCharFeld(lines));
    return std::unique_ptr<LineMark[]>(new (std::nothrow) LineMark[count + 1]);
}
