#include "commands/wordMatcher.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <cstring>

char* findText(char* from, const TextCopy& text) noexcept {
    return text.size() == 1 ? std::strchr(from, text.front()) : std::strstr(from, text.get());
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
    std::memmove(first, last, std::strlen(last) + 1);
}
