#include "apt/Result.h"

#include "apt/appendText.h"

namespace {

void appendTo(std::FILE* stream, std::string_view text) noexcept {
    if (stream != nullptr) {
        appendText(stream, text);
    }
}

} // namespace

void Result::write(StatementKind kind, std::string_view statements) const noexcept {
    count(kind);
    appendTo(m_outputs.OutputFile(), statements);
    writeToLog(statements);
}

void Result::write(StatementKind kind, const StatementText& statements) const noexcept {
    if (!statements.isWhole()) {
        m_outputs.LoseStatement();
        return;
    }
    write(kind, statements.view());
}

void Result::writeToLog(std::string_view message) const noexcept {
    appendTo(m_outputs.LogFile(), message);
}
