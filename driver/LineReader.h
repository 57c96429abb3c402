#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string_view>

/// Reads a file line by line. A line of more than kMostBytes bytes comes in pieces. The stream is
/// the caller's; its position runs ahead of the pieces.
class LineReader {
public:
    static constexpr std::size_t kMostBytes = 255;

    /// Throws std::bad_alloc when there is no memory for the buffer.
    explicit LineReader(std::FILE* file);

    /// Gives the next piece with its newline, if it has one; it stays valid until the next call.
    /// False at the end of the file, and after a read error once all whole lines and full pieces
    /// before it are given.
    [[nodiscard]] bool Next(std::string_view& piece) noexcept;
    /// Whether an error ended the reading, and which one of the system's.
    [[nodiscard]] bool HasFailed() const noexcept { return m_hasFailed; }
    [[nodiscard]] int Error() const noexcept { return m_error; }

private:
    [[nodiscard]] bool refill() noexcept;
    [[nodiscard]] std::string_view take(std::size_t length) noexcept;

    std::FILE* m_file;
    std::unique_ptr<char[]> m_buffer;
    const char* m_begin; // what is read and not given yet
    const char* m_end;
    bool m_isAtEnd = false;
    bool m_hasFailed = false;
    int m_error = 0;
};
