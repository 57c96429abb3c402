#include "path/StatementSource.h"

#include <cstring>
#include <utility>

namespace {

constexpr bool isBlank(char c) noexcept { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace

bool StatementSource::Next(std::string_view& statement) {
    bool goesOn = false;
    do {
        if (!takeLine(statement, goesOn)) {
            return false;
        }
        m_line = m_lines.Number();
    } while (statement.empty() && !goesOn);
    return !goesOn || join(statement);
}

// The text of a line up to its "$".
bool StatementSource::takeLine(std::string_view& text, bool& goesOn) {
    if (!m_lines.Next(text)) {
        return m_lines.Error() == 0 ? false : fail(std::strerror(m_lines.Error()));
    }
    if (m_lines.IsTooLong()) {
        return fail("the line is longer than any statement");
    }
    const std::size_t sign = text.find('$');
    goesOn = sign != std::string_view::npos && text.substr(sign, 2) != "$$";
    text = trimmed(text.substr(0, sign));
    return true;
}

bool StatementSource::join(std::string_view& statement) {
    m_joined = statement;
    for (bool goesOn = true; goesOn;) {
        if (!takeLine(statement, goesOn)) {
            return m_failure.empty() ? fail("the file ends within a statement") : false;
        }
        if (m_joined.size() + statement.size() > WholeLines::kLongest) {
            return fail("the statement is too long");
        }
        m_joined += statement;
    }
    statement = m_joined;
    return true;
}

bool StatementSource::fail(std::string reason) {
    m_line = m_lines.Number();
    m_failure = std::move(reason);
    return false;
}
