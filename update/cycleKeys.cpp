#include "update/cycleKeys.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <cstring>

namespace {

constexpr std::size_t kPrefixLength = 6;
constexpr std::array<const char*, kCycleSettings> kPrefixes = {"*CYCAP", "*CYCBH", "*CYCLK",
                                                               "*CYCPL", "*CYCPK"};

} // namespace

std::array<char, 9> cycleKeyText(const CycleKey& key) noexcept {
    std::array<char, 9> text{};
    std::memcpy(text.data(), kPrefixes[key.setting], kPrefixLength);
    text[6] = static_cast<char>('0' + key.cycle / 10);
    text[7] = static_cast<char>('0' + key.cycle % 10);
    return text;
}

std::optional<CycleKey> cycleKeyOf(const char* line) noexcept {
    for (std::size_t setting = 0; setting < kCycleSettings; ++setting) {
        if (std::strncmp(line, kPrefixes[setting], kPrefixLength) != 0) {
            continue;
        }
        const char* const digits = line + kPrefixLength;
        if (isDigitByte(digits[0]) && isDigitByte(digits[1])) {
            const int cycle = (digits[0] - '0') * 10 + (digits[1] - '0');
            if (cycle >= 1 && cycle <= kCycles) {
                return CycleKey{static_cast<CycleSetting>(setting), cycle};
            }
        }
    }
    return std::nullopt;
}
