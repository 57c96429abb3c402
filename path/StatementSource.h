#pragma once

#include "path/WholeLines.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// Cuts an APT source into statements: a "$" continues a statement on the next line, "$$" begins a
/// remark. Empty lines are none.
class StatementSource {
public:
    explicit StatementSource(std::FILE* file) : m_lines(file) {}

    /// Gives the next statement without blanks around it; it stays valid until the next call. False
    /// at the end, and at a failure, which Failure tells.
    [[nodiscard]] bool Next(std::string_view& statement);

    /// The first line of the statement given last or, after a failure, the line of that.
    [[nodiscard]] std::uint32_t Line() const noexcept { return m_line; }
    /// Why there are no more statements; empty at the end of the file.
    [[nodiscard]] const std::string& Failure() const noexcept { return m_failure; }
    /// Whether the last line has its end.
    [[nodiscard]] bool HasLineEnd() const noexcept { return m_lines.HasEnd(); }

private:
    [[nodiscard]] bool takeLine(std::string_view& text, bool& goesOn);
    [[nodiscard]] bool join(std::string_view& statement);
    bool fail(std::string reason);

    WholeLines m_lines;
    std::string m_joined;
    std::uint32_t m_line = 0;
    std::string m_failure;
};
