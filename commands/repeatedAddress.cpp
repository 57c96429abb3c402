#include "commands/repeatedAddress.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::uint32_t bitOf(char letter) noexcept { return std::uint32_t{1} << (letter - 'A'); }

// "2=" in "S2=500" belongs to the address.
bool beginsNumbered(std::string_view behind) noexcept {
    std::size_t i = 0;
    while (i < behind.size() && isDigitByte(behind[i])) {
        ++i;
    }
    return i > 0 && i < behind.size() && behind[i] == '=';
}

} // namespace

char repeatedAddress(std::string_view block, std::string_view letters) noexcept {
    std::uint32_t watched = 0;
    for (const char letter : letters) {
        watched |= bitOf(letter);
    }
    std::uint32_t seen = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (block[i] == '"') {
            i = std::min(block.find('"', i + 1), block.size());
            continue;
        }
        if (!isUpperByte(block[i])) {
            continue;
        }
        const std::size_t begin = i;
        while (i + 1 < block.size() && isUpperByte(block[i + 1])) {
            ++i;
        }
        const std::uint32_t bit = bitOf(block[begin]);
        if (i > begin || (watched & bit) == 0 || beginsNumbered(block.substr(i + 1))) {
            continue;
        }
        if ((seen & bit) != 0) {
            return block[begin];
        }
        seen |= bit;
    }
    return '\0';
}
