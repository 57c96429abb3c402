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
