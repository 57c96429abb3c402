#include "apt/Result.h"

namespace {

// One conversion runs in one thread and owns its streams, so no statement takes their locks.
void writeUnlocked(std::string_view text, std::FILE* stream) noexcept {
    (void)fwrite_unlocked(text.data(), 1, text.size(), stream);
}

} // namespace

void Result::write(StatementKind kind, std::string_view statements) const noexcept {
    count(kind);
    writeUnlocked(statements, m_output);
    writeToLog(statements);
}

void Result::writeToLog(std::string_view message) const noexcept {
    if (m_log != nullptr) {
        writeUnlocked(message, m_log);
    }
}
