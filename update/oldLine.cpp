#include "update/oldLine.h"

#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <cstring>

namespace {

bool isKeyCharacter(char c) noexcept { return isUpperByte(c) || isDigitByte(c) || c == '_'; }

} // namespace

bool hasKey(const char* line, const char* key) noexcept {
    return std::strncmp(line, key, kKeyLength) == 0;
}

bool isKeyLine(const char* line) noexcept {
    if (line[0] != '*') {
        return false;
    }
    for (std::size_t i = 1; i < kKeyLength; ++i) {
        if (!isKeyCharacter(line[i])) {
            return false;
        }
    }
    const char separator = line[kSeparatorColumn - 1];
    return separator == ' ' || separator == '\0';
}

const char* textFromColumn(const char* line, std::size_t column) noexcept {
    return line + strnlen(line, column - 1);
}

HeapText trimmedColumns(const char* line, std::size_t column, std::size_t width) noexcept {
    HeapText text(strndup(textFromColumn(line, column), width));
    string_mani(3, text.get());
    return text;
}

long integerFromColumn(const char* line, std::size_t column) noexcept {
    return line == nullptr ? 0 : readLong(textFromColumn(line, column));
}
