#include "driver/holdsWord.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

namespace {

// The longest spelling that is looked up: prose has longer words, and no dialect has.
constexpr std::size_t kLongest = 64;

bool isAnyOf(std::string_view text, std::size_t at, std::string_view set) noexcept {
    return at < text.size() && set.find(text[at]) != std::string_view::npos;
}

std::size_t behindDigits(std::string_view text, std::size_t at) noexcept {
    while (at < text.size() && isDigitByte(text[at])) {
        ++at;
    }
    return at;
}

// Takes letters with the digits behind them off the front of `text`, and tells whether they are a
// known word.
bool takeKnown(std::string_view& text, const Vocabulary& vocabulary) {
    const auto isLetter = [](char c) { return isLetterByte(c) || c == '_'; };
    const std::size_t comma = text.front() == ',' ? 1 : 0;
    const auto letters = static_cast<std::size_t>(
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(comma), text.end(), isLetter) -
        text.begin());
    const std::size_t digits = behindDigits(text, letters);
    std::size_t end = digits;
    if (digits > letters && isAnyOf(text, digits, ".")) {
        end = behindDigits(text, digits + 1);
    }
    const std::string_view word = text.substr(0, end);
    const bool isAssigned = isAnyOf(text, end, "=");
    const bool hasValue =
        (end > letters && !isAssigned) || (end == letters && isAnyOf(text, end, "=+-.,#[("));
    text.remove_prefix(end);
    if (letters > kLongest || letters == comma) {
        return false;
    }
    const bool isCode = (letters > 1 || end > letters) && !isAssigned && word.size() <= kLongest &&
                        vocabulary.isKnown(word);
    return isCode || (hasValue && vocabulary.isKnown(word.substr(0, letters)));
}

} // namespace

bool holdsWord(std::string_view words, const Vocabulary& vocabulary) {
    while (!words.empty()) {
        const char c = words.front();
        if (c == '"') {
            const std::size_t close = words.find('"', 1);
            words.remove_prefix(close == std::string_view::npos ? words.size() : close + 1);
        } else if (isLetterByte(c) || c == '_' ||
                   (c == ',' && words.size() > 1 && isLetterByte(words[1]))) {
            if (takeKnown(words, vocabulary)) {
                return true;
            }
        } else {
            words.remove_prefix(1);
        }
    }
    return false;
}
