#include "softCommon/CStringUtil/string_mani.h"

#include <cstring>

namespace {

void cutAtLineEnd(char* string) noexcept { string[std::strcspn(string, "\r\n")] = '\0'; }

void removeTrailingBlanks(char* string) noexcept {
    std::size_t length = std::strlen(string);
    while (length > 0 && string[length - 1] == ' ') {
        --length;
    }
    string[length] = '\0';
}

std::size_t countLeadingBlanks(const char* string) noexcept { return std::strspn(string, " "); }

void removeLeadingBlanks(char* string) noexcept {
    const std::size_t blanks = countLeadingBlanks(string);
    if (blanks > 0) {
        std::memmove(string, string + blanks, std::strlen(string + blanks) + 1);
    }
}

void unquote(char* string) noexcept {
    if (string[0] != '\'') {
        return;
    }
    const std::size_t length = std::strcspn(string + 1, "'");
    std::memmove(string, string + 1, length);
    string[length] = '\0';
}

// The terminator is written only at a line end. Without one, the text moves to the front and the
// old end keeps its place.
void moveToFrontAndCut(char* string) noexcept {
    const std::size_t blanks = countLeadingBlanks(string);
    const char* const text = string + blanks;
    const std::size_t length = std::strcspn(text, "\r\n");
    const bool hasLineEnd = text[length] != '\0';
    std::memmove(string, text, length);
    if (hasLineEnd) {
        string[length] = '\0';
    }
}

} // namespace

void string_mani(int code, char* string) noexcept {
    if (string == nullptr) {
        return;
    }
    switch (code) {
    case 0:
        cutAtLineEnd(string);
        break;
    case 1:
        removeTrailingBlanks(string);
        break;
    case 2:
        removeLeadingBlanks(string);
        break;
    case 3:
        removeLeadingBlanks(string);
        cutAtLineEnd(string);
        removeTrailingBlanks(string);
        break;
    case 4:
        unquote(string);
        break;
    case 5:
        moveToFrontAndCut(string);
        break;
    default:
        break;
    }
}
