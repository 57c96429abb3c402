#pragma once

#include "apt/Outputs.h"
#include "apt/StatementText.h"

#include <string_view>
#include <utility>

/// Base of every result writer: the outputs that the factory had when it made the writer, never
/// opened or closed here.
class Result {
public:
    explicit Result(Outputs outputs) noexcept : m_outputs(std::move(outputs)) {}
    /// Either stream may be null: nothing is written there.
    Result(std::FILE* output, std::FILE* log) noexcept : m_outputs(output, log) {}

protected:
    ~Result() = default;

    /// Writes one or more whole statements to the output, if there is one, then the same text to
    /// the log, if there is one, and counts them once as `kind`. This is the only way by which a
    /// statement leaves the system. The results of the writes are not checked here: the driver asks
    /// both streams when the conversion ends.
    void write(StatementKind kind, std::string_view statements) const noexcept;
    /// The same for a text that was built. One that did not fit its buffer is not written at all,
    /// and the outputs say so: the conversion fails.
    void write(StatementKind kind, const StatementText& statements) const noexcept;
    /// Writes a message to the log alone.
    void writeToLog(std::string_view message) const noexcept;
    void count(StatementKind kind) const noexcept { m_outputs.Count(kind); }

private:
    Outputs m_outputs;
};
