#pragma once

#include "apt/StatementCounts.h"

#include <cstdio>
#include <string_view>

/// Base of every result writer: the output stream and the log stream, both borrowed from the
/// factory and never opened or closed here. The log stream may be null, the output stream not. So
/// are the counts, which may be null as well.
class Result {
protected:
    Result(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : m_output(output), m_log(log), m_counts(counts) {}
    ~Result() = default;

    /// Writes one or more whole statements to the output, then the same text to the log, if there
    /// is one, and counts them once as `kind`. This is the only way by which a statement leaves the
    /// system. The results of the
    /// writes are not checked here: the driver asks both streams when the conversion ends.
    void write(StatementKind kind, std::string_view statements) const noexcept;
    /// Writes a message to the log alone.
    void writeToLog(std::string_view message) const noexcept;
    void count(StatementKind kind) const noexcept {
        if (m_counts != nullptr) {
            m_counts->Count(kind);
        }
    }

private:
    std::FILE* m_output;
    std::FILE* m_log;
    StatementCounts* m_counts;
};
