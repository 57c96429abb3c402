#include "softCommon/CStringUtil/string_mani.h"

#include <cstring>
#include <initializer_list>

namespace {

void cutAtLineEnd(char* string) noexcept { string[std::strcspn(string, "\r\n")] = '\0'; }

std::size_t removeTrailingBlanks(char* string, std::size_t length) noexcept {
    while (length > 0 && string[length - 1] == ' ') {
        --length;
    }
    string[length] = '\0';
    return length;
}

std::size_t countLeadingBlanks(const char* string) noexcept {
    std::size_t blanks = 0;
    while (string[blanks] == ' ') {
        ++blanks;
    }
    return blanks;
}

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

// Of most blocks only blanks are left. For the others, two searches for one byte are faster than
// one for either of two.
std::size_t trimText(char* string) noexcept {
    if (string[countLeadingBlanks(string)] == '\0') {
        *string = '\0';
        return 0;
    }
    const char* const newline = std::strchr(string, '\n');
    return trimText(string, newline == nullptr ? std::strlen(string)
                                               : static_cast<std::size_t>(newline - string));
}

std::size_t trimText(char* string, std::size_t length) noexcept {
    const std::string_view text = trimmed({string, length});
    if (text.data() != string) {
        std::memmove(string, text.data(), text.size());
    }
    string[text.size()] = '\0';
    return text.size();
}

void string_mani(int code, char* string) noexcept {
    if (string == nullptr) {
        return;
    }
    switch (code) {
    case 0:
        cutAtLineEnd(string);
        break;
    case 1:
        removeTrailingBlanks(string, std::strlen(string));
        break;
    case 2:
        removeLeadingBlanks(string);
        break;
    case 3:
        trimText(string);
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
