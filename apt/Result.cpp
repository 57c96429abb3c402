#include "apt/Result.h"

void Result::write(std::string_view statements) const noexcept {
    (void)std::fwrite(statements.data(), 1, statements.size(), m_output);
    writeToLog(statements);
}

void Result::writeToLog(std::string_view message) const noexcept {
    if (m_log != nullptr) {
        (void)std::fwrite(message.data(), 1, message.size(), m_log);
    }
}
