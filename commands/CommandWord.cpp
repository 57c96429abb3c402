#include "commands/CommandWord.h"

#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/asciiBytes.h"

void CommandWord::Set(const char* text, int number) noexcept {
    if (text != nullptr) {
        m_text = TextCopy(text);
    }
    m_number = number;
}

void CommandWord::Set(const WordCode& code) {
    Set(std::string(code.Letters()).c_str(), code.Number());
    m_fraction = code.Fraction();
}

// A point without digits is none, and "G59.10" is G59.1. Zeros alone are kept: "G1.0" is not G1.
std::string_view CommandWord::fractionAt(const char* end) noexcept {
    if (*end != '.') {
        return {};
    }
    const char* last = end + 1;
    while (isDigitByte(*last)) {
        ++last;
    }
    std::string_view digits(end + 1, static_cast<std::size_t>(last - end - 1));
    const std::size_t counting = digits.find_last_not_of('0') + 1;
    return counting == 0 ? digits : digits.substr(0, counting);
}

bool CommandWord::isWhole(const char* digits, const char* end) const noexcept {
    if (*end == '=') {
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
