#include "commands/wordMatcher.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <cstring>

char* findWord(char* block, char* from, const char* syntax) noexcept {
    if (syntax == nullptr || *syntax == '\0') {
        return nullptr;
    }
    const bool isOneByte = syntax[1] == '\0';
    for (char* p = from;; ++p) {
        p = isOneByte ? std::strchr(p, *syntax) : std::strstr(p, syntax);
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
