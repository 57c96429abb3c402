#include "commands/CommandWord.h"

#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/asciiBytes.h"

void CommandWord::Set(const char* text, int number) noexcept {
    if (text != nullptr) {
        m_text = TextCopy(text);
    }
    m_number = number;
}

bool CommandWord::isWhole(const char* digits, const char* end) const noexcept {
    const bool hasFraction = *end == '.' && isDigitByte(end[1]);
    if (*end == '=' || hasFraction) {
        return false;
    }
    const bool hasDigits = end != digits;
    const bool isName = m_rule == WordRule::kStrictNames && isNameStart(m_text.get());
    if (isName) {
        return !isNameByte(*end) && (m_number != -1 || !hasDigits);
    }
    return hasDigits || m_text.size() != 1 || !isLetterByte(*end);
}

std::optional<int> CommandWord::NumberAt(const char* digits) noexcept {
    return isDigitByte(*digits) ? std::optional<int>(readCommandNumber(digits)) : std::nullopt;
}
