#include "commands/RecordNumber.h"

#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <cstring>

void RecordNumber::InitRecordNumber(const char* address) noexcept { m_address = TextCopy(address); }

bool RecordNumber::Cut(char* line) const noexcept {
    if (m_address.empty() || line == nullptr ||
        std::strncmp(line, m_address.get(), m_address.size()) != 0) {
        return false;
    }
    cutOut(line, skipDigits(line + m_address.size()));
    return true;
}

bool RecordNumber::CutBeforeDigit(char* line) const noexcept {
    return line != nullptr && std::strlen(line) > m_address.size() &&
           isDigitByte(line[m_address.size()]) && Cut(line);
}
