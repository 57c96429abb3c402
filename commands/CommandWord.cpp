#include "commands/CommandWord.h"

#include "commands/ncNumber.h"
#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/asciiBytes.h"

void CommandWord::Set(const char* text, int number) noexcept {
    if (text != nullptr) {
        m_text = TextCopy(text);
    }
    m_number = number;
}

char* CommandWord::Find(char* block, char* from) const noexcept {
    return findWord(block, from, m_text);
}

bool CommandWord::HasDigits(const char* digits, const char* end) const noexcept {
    return m_number == -1 || (end != digits && readCommandNumber(digits) == m_number);
}

std::optional<int> CommandWord::NumberAt(const char* digits) noexcept {
    return isDigitByte(*digits) ? std::optional<int>(readCommandNumber(digits)) : std::nullopt;
}
