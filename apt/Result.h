#pragma once

#include <cstdio>
#include <string_view>

/// Base of every result writer: the output stream and the log stream, both borrowed from the
/// factory and never opened or closed here. The log stream may be null, the output stream not.
class Result {
protected:
    Result(std::FILE* output, std::FILE* log) noexcept : m_output(output), m_log(log) {}
    ~Result() = default;

    /// Writes one or more whole statements to the output, then the same text to the log, if there
    /// is one. This is the only way by which a statement leaves the system. The results of the
    /// writes are not checked here: the driver asks both streams when the conversion ends.
    void write(std::string_view statements) const noexcept;
    /// Writes a message to the log alone.
    void writeToLog(std::string_view message) const noexcept;

private:
    std::FILE* m_output;
    std::FILE* m_log;
};
