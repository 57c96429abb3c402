#pragma once

#include "softCommon/FileOwner.h"

#include <memory>

/// An output of the conversion with a buffer larger than the standard one: fewer calls of the
/// system for long programs. Opens, owns and closes the stream.
class BufferedFile {
public:
    /// Closes what was open and creates or empties `name`. False, with errno set, when that fails.
    [[nodiscard]] bool open(const char* name) noexcept;
    /// The same with another descriptor of the file that `descriptor` leads to. Nothing is emptied.
    [[nodiscard]] bool openAnother(int descriptor) noexcept;
    /// Closes the stream, if there is one, without asking whether everything reached the file.
    void close() noexcept { m_file.reset(); }
    /// Closes the stream. False, with errno set, when something written did not reach the file.
    [[nodiscard]] bool closeCompletely() noexcept;

    [[nodiscard]] std::FILE* get() const noexcept { return m_file.get(); }

private:
    [[nodiscard]] bool take(std::FILE* file) noexcept;

    std::unique_ptr<char[]> m_buffer; // outlives the stream
    FileOwner m_file;
};
