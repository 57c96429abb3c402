#include "update/LineCollector.h"

#include <cstdio>
#include <cstdlib>

void LineCollector::add(const char* line) noexcept {
    if (m_failed) {
        return;
    }
    m_lines.reset(addCharFeld200(m_lines.release(), &m_count, line));
    if (m_lines == nullptr) {
        fail();
    }
}

void LineCollector::add(const HeapText& line) noexcept {
    if (line == nullptr) {
        std::fputs("LineCollector: FATAL - malloc failed!\n", stderr);
        fail();
    } else {
        add(line.get());
    }
}

char** LineCollector::release() noexcept {
    if (!m_failed && m_lines == nullptr) {
        m_lines.reset(static_cast<char**>(std::calloc(1, sizeof(char*))));
    }
    m_count = 0;
    return m_lines.release();
}

void LineCollector::fail() noexcept {
    m_lines.reset();
    m_count = 0;
    m_failed = true;
}
