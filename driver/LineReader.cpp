#include "driver/LineReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

// Whole blocks of the file system, which go straight to the buffer. It has room before them for the
// beginning of a line that the reading before cut.
constexpr std::size_t kReadSize = std::size_t{64} * 1024;

} // namespace

LineReader::LineReader(std::FILE* file)
    : m_file(file), m_buffer(new char[kMostBytes + kReadSize]), m_begin(m_buffer.get()),
      m_end(m_begin) {}

bool LineReader::Next(std::string_view& piece) noexcept {
    do {
        const std::size_t most = std::min(kMostBytes, static_cast<std::size_t>(m_end - m_begin));
        if (const void* const newline = std::memchr(m_begin, '\n', most)) {
            const auto length = static_cast<const char*>(newline) - m_begin + 1;
            piece = take(static_cast<std::size_t>(length));
            return true;
        }
        if (most == kMostBytes) {
            piece = take(most);
            return true;
        }
    } while (refill());
    // A line that an error cut off is not given: it would look like a whole one.
    if (m_hasFailed || m_begin == m_end) {
        return false;
    }
    piece = take(static_cast<std::size_t>(m_end - m_begin));
    return true;
}

std::string_view LineReader::take(std::size_t length) noexcept {
    const std::string_view piece(m_begin, length);
    m_begin += length;
    return piece;
}

// What is left, less than a piece, moves in front of what is read.
bool LineReader::refill() noexcept {
    if (m_isAtEnd) {
        return false;
    }
    const auto left = static_cast<std::size_t>(m_end - m_begin);
    char* const readTo = m_buffer.get() + kMostBytes;
    std::memmove(readTo - left, m_begin, left);
    const std::size_t read = std::fread(readTo, 1, kReadSize, m_file);
    if (read < kReadSize) {
        m_isAtEnd = true;
        m_hasFailed = std::ferror(m_file) != 0;
        m_error = errno;
    }
    m_begin = readTo - left;
    m_end = readTo + read;
    return read > 0;
}
