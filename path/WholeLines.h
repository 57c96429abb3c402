#pragma once

#include "driver/LineReader.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The lines of a text, each in one piece and without its end; a byte order mark in front of the
/// first, as some editors put there, is none of it. What a line has beyond its longest
/// length is left out. The stream is the caller's.
class WholeLines {
public:
    static constexpr std::size_t kLongest = std::size_t{64} * 1024;

    explicit WholeLines(std::FILE* file) : m_reader(file) {}

    /// The line stays valid until the next call. False at the end of the file or of what of it can
    /// be read; Error tells which.
    [[nodiscard]] bool Next(std::string_view& line);

    /// The line given last, from 1; 0 before the first.
    [[nodiscard]] std::uint32_t Number() const noexcept { return m_number; }
    [[nodiscard]] bool IsTooLong() const noexcept { return m_isTooLong; }
    /// Whether the line given last has its end: that of a file that was cut off has none.
    [[nodiscard]] bool HasEnd() const noexcept { return m_hasEnd; }
    /// The system's error that ended the reading, or 0.
    [[nodiscard]] int Error() const noexcept { return m_reader.HasFailed() ? m_reader.Error() : 0; }

private:
    [[nodiscard]] bool takeLine(std::string_view& line);
    [[nodiscard]] std::string_view withoutEnd(std::string_view piece) noexcept;
    void collect(std::string_view piece);

    LineReader m_reader;
    std::string m_collected; // a line of several pieces
    std::uint32_t m_number = 0;
    bool m_isTooLong = false;
    bool m_hasEnd = true;
};
