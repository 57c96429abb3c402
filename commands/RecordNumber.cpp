#include "commands/RecordNumber.h"

#include "commands/wordMatcher.h"

#include <cstring>

void RecordNumber::InitRecordNumber(const char* address) noexcept { m_address = copyText(address); }

int RecordNumber::DeleteRecordNumber(char* line) const noexcept {
    if (m_address == nullptr || line == nullptr || *line == '\0') {
        return 0;
    }
    const std::size_t length = std::strlen(m_address.get());
    if (length > 0 && std::strncmp(line, m_address.get(), length) == 0) {
        cutOut(line, skipDigits(line + length));
    }
    return 0;
}
