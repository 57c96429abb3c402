#include "commands/wordMatcher.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <cstring>

char* findText(char* from, const TextCopy& text) noexcept {
    if (text.size() != 1) {
        return std::strstr(from, text.get());
    }
    // Words are taken out from the left, so the next one mostly stands at the front.
    constexpr int kFrontBytes = 4;
    for (int i = 0; i < kFrontBytes; ++i, ++from) {
        if (*from == text.front()) {
            return from;
        }
        if (*from == '\0') {
            return nullptr;
        }
    }
    return std::strchr(from, text.front());
}

char* findWord(char* block, char* from, const TextCopy& syntax) noexcept {
    if (syntax.empty()) {
        return nullptr;
    }
    for (char* p = from;; ++p) {
        p = findText(p, syntax);
        if (p == nullptr || p == block || !isLetterByte(p[-1])) {
            return p;
        }
    }
}

namespace {

const char* behindQuotation(const char* mark) noexcept {
    const char* const close = std::strchr(mark + 1, '"');
    return close == nullptr ? mark + std::strlen(mark) : close + 1;
}

// A token is a quotation, a name where names hold no words, or one byte.
const char* behindToken(const char* token, WordRule rule) noexcept {
    if (*token == '"') {
        return behindQuotation(token);
    }
    if (rule != WordRule::kStrictNames || !isNameStart(token)) {
        return token + 1;
    }
    while (isNameByte(*token)) {
        ++token;
    }
    return token;
}

bool belongsToWordBefore(const char* block, const char* place) noexcept {
    if (place == block) {
        return false;
    }
    const char before = place[-1];
    return isLetterByte(before) || before == '_' || (before == ',' && isLetterByte(*place));
}

} // namespace

char* findStrictWord(char* block, char* from, const TextCopy& syntax, WordRule rule,
                     const char*& token) noexcept {
    if (syntax.empty()) {
        return nullptr;
    }
    for (char* p = findText(from, syntax); p != nullptr; p = findText(p + 1, syntax)) {
        while (token < p) {
            token = behindToken(token, rule);
        }
        if (token == p && !belongsToWordBefore(block, p)) {
            return p;
        }
    }
    return nullptr;
}

bool isNameStart(const char* text) noexcept {
    return *text == '_' || (isLetterByte(*text) && (isLetterByte(text[1]) || text[1] == '_'));
}

char* skipDigits(char* p) noexcept {
    while (isDigitByte(*p)) {
        ++p;
    }
    return p;
}

void cutOut(char* first, const char* last) noexcept {
    if (*last == '\0') {
        *first = '\0';
        return;
    }
    std::memmove(first, last, std::strlen(last) + 1);
}
