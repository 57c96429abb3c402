#pragma once

#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/HeapText.h"

/// Builds a `CharFeld` line by line in linear time. Exhausted memory at any line makes the whole
/// collection fail: nothing is collected after it, and release gives null. One that was moved from
/// is only good for a new value.
class LineCollector {
public:
    void add(const char* line) noexcept;
    /// Adds a copy; an empty owner counts as exhausted memory.
    void add(const HeapText& line) noexcept;

    [[nodiscard]] bool failed() const noexcept { return m_failed; }

    /// Hands the array to the caller, an empty one when nothing was added; null after a failure.
    [[nodiscard]] char** release() noexcept;

private:
    void fail() noexcept;

    CharFeldOwner m_lines;
    int m_count = 0;
    bool m_failed = false;
};
