#include "apt/Result.h"

#include "apt/appendText.h"

void Result::write(StatementKind kind, std::string_view statements) const noexcept {
    count(kind);
    appendText(m_output, statements);
    writeToLog(statements);
}

void Result::writeToLog(std::string_view message) const noexcept {
    if (m_log != nullptr) {
        appendText(m_log, message);
    }
}
