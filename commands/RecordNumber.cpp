#include "commands/RecordNumber.h"

#include "commands/wordMatcher.h"

#include <cstring>

void RecordNumber::InitRecordNumber(const char* address) noexcept { m_address = TextCopy(address); }

int RecordNumber::DeleteRecordNumber(char* line) const noexcept {
    if (m_address.empty() || line == nullptr) {
        return 0;
    }
    if (std::strncmp(line, m_address.get(), m_address.size()) == 0) {
        cutOut(line, skipDigits(line + m_address.size()));
    }
    return 0;
}
