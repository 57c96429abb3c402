#include "commands/WordCode.h"

#include "commands/ncNumber.h"
#include "commands/wordMatcher.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <new>

namespace {

std::string_view trailingDigits(std::string_view text) noexcept {
    std::size_t begin = text.size();
    while (begin > 0 && isDigitByte(text[begin - 1])) {
        --begin;
    }
    return text.substr(begin);
}

std::string_view withoutTrailingZeros(std::string_view digits) noexcept {
    return digits.substr(0, digits.find_last_not_of('0') + 1);
}

} // namespace

WordCode::WordCode(std::string_view text) {
    std::string_view digits = trailingDigits(text);
    std::string_view letters = text.substr(0, text.size() - digits.size());
    if (letters.ends_with('.') && !digits.empty()) {
        const std::string_view whole = trailingDigits(letters.substr(0, letters.size() - 1));
        if (!whole.empty()) {
            m_fraction = withoutTrailingZeros(digits);
            letters.remove_suffix(whole.size() + 1);
            digits = whole;
        }
    }
    if (!digits.empty()) {
        m_number = readCommandNumber(std::string(digits).c_str());
    }
    m_letters = TextCopy(std::string(letters).c_str());
    if (m_letters.get() == nullptr) {
        throw std::bad_alloc();
    }
}

bool WordCode::IsWord() const noexcept {
    const std::string_view letters = Letters();
    return !letters.empty() && isLetterByte(letters.front()) &&
           std::ranges::all_of(letters, isNameByte);
}

std::string WordCode::Spelling() const {
    std::string text = m_letters.get();
    if (m_number != -1) {
        text.append(std::to_string(m_number));
    }
    if (!m_fraction.empty()) {
        text.append(".").append(m_fraction);
    }
    return text;
}

std::optional<WordPlace> WordCode::FindIn(char* block, WordRule rule) const noexcept {
    const char* token = block;
    const bool isName =
        m_number == -1 || (rule == WordRule::kStrictNames && isNameStart(m_letters.get()));
    char* from = block;
    while (char* const word = findWordBy(rule, block, from, m_letters, token)) {
        char* const digits = word + m_letters.size();
        if (char* const end = endAt(digits, isName)) {
            return WordPlace{word, end};
        }
        from = digits;
    }
    return std::nullopt;
}

// The end of the code whose digits begin there; null when they are not its own.
char* WordCode::endAt(char* digits, bool isNameWhole) const noexcept {
    char* end = skipDigits(digits);
    const bool hasNumber = end != digits;
    if (hasNumber != (m_number != -1) || (hasNumber && readCommandNumber(digits) != m_number)) {
        return nullptr;
    }
    std::string_view fraction;
    if (hasNumber && *end == '.') {
        const char* const begin = end + 1;
        end = skipDigits(end + 1);
        fraction = withoutTrailingZeros({begin, static_cast<std::size_t>(end - begin)});
    }
    const bool goesOn = *end == '=' || (isNameWhole && isNameByte(*end));
    return fraction == m_fraction && !goesOn ? end : nullptr;
}
