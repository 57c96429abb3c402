#pragma once

#include <memory>

/// What is noted about one line of an old file.
struct LineMark {
    bool isTaken = false; ///< a converter took the line over
    int source = -1;      ///< the line that this one is a renamed copy of; -1 for none
};

/// The decoded lines of an old file (a `CharFeld`; null has no lines) as look-ups and converters
/// pass them on, and the marks in which they note what they take. Owns neither; both must outlive
/// it. Without marks nothing is noted.
class OldLines {
public:
    // Plain lines do where nobody asks what was taken.
    OldLines(char** lines, LineMark* marks = nullptr) noexcept : m_lines(lines), m_marks(marks) {}

    [[nodiscard]] char** get() const noexcept { return m_lines; }
    [[nodiscard]] char*& operator[](int index) const noexcept { return m_lines[index]; }

    /// Notes that the line is taken over, and with it the one that it is a copy of.
    void take(int index) const noexcept;
    /// Notes that line `index` is from now on a renamed copy of line `source`.
    void setSource(int index, int source) const noexcept;
    /// Whether the line was taken over; false without marks.
    [[nodiscard]] bool isTaken(int index) const noexcept;

private:
    char** m_lines;
    LineMark* m_marks;
};

/// A mark per line, none taken; null when memory is exhausted.
[[nodiscard]] std::unique_ptr<LineMark[]> newLineMarks(char* const* lines) noexcept;
