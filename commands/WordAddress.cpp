#include "commands/WordAddress.h"

#include "commands/wordMatcher.h"

#include <cstring>
#include <new>

namespace {

char* skipNumber(char* p, char point) noexcept {
    p = skipDigits(p);
    return *p == point ? skipDigits(p + 1) : p;
}

} // namespace

WordAddress::WordAddress(std::string_view text) : m_letters(std::string(text).c_str()) {
    if (m_letters.get() == nullptr) {
        throw std::bad_alloc();
    }
}

std::optional<WordPlace> WordAddress::FindNumber(char* block, WordRule rule,
                                                 char separator) const noexcept {
    return find(block, rule, separator, false);
}

std::optional<WordPlace> WordAddress::FindValue(char* block, WordRule rule,
                                                char separator) const noexcept {
    return find(block, rule, separator, true);
}

std::optional<WordPlace> WordAddress::find(char* block, WordRule rule, char separator,
                                           bool takesAnyValue) const noexcept {
    const char point = separator == '\0' ? '.' : separator;
    const char* token = block;
    char* from = block;
    while (char* const word = findWordBy(rule, block, from, m_letters, token)) {
        char* const value = word + m_letters.size();
        char* p = value + (*value == '=' ? 1 : 0);
        p += *p == '+' || *p == '-' ? 1 : 0;
        char* const end = skipNumber(p, point);
        if (end != p && *end != '=') {
            return WordPlace{word, end};
        }
        if (takesAnyValue && end == p && *value != '\0' &&
            std::strchr("=+-#[(", *value) != nullptr) {
            return WordPlace{word, value + std::strcspn(value, " ")};
        }
        from = value;
    }
    return std::nullopt;
}
