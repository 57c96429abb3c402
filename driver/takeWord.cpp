#include "driver/takeWord.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

namespace {

constexpr std::string_view kBlanks = " \t";

// The length of letters with a number at the start of `text`; 0 when there is no such word.
std::size_t addressLength(std::string_view text, char separator) noexcept {
    const auto isSeparator = [separator](char c) {
        return c == '.' || (c == separator && c != '\0');
    };
    const auto* p = text.begin();
    const auto skipWhile = [&p, &text](auto belongs) {
        const auto* const begin = p;
        p = std::find_if_not(p, text.end(), belongs);
        return p - begin;
    };
    if (skipWhile(isLetterByte) == 0) {
        return 0;
    }
    skipWhile([](char c) { return c == '+' || c == '-'; });
    auto digits = skipWhile(isDigitByte);
    if (p != text.end() && isSeparator(*p)) {
        ++p;
        digits += skipWhile(isDigitByte);
    }
    return digits == 0 ? 0 : static_cast<std::size_t>(p - text.begin());
}

} // namespace

std::string_view takeWord(std::string_view& text, char separator) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    std::size_t length = addressLength(text, separator);
    if (length == 0) {
        length = std::min(text.find_first_of(kBlanks), text.size());
    }
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}
