#include "program/appendNumber.h"

#include "commands/ncNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace {

// Six places are enough for most values that programs compute from what people wrote. A decimal
// number of up to 15 digits is the only one of that length which reads as its double.
constexpr int kUsualPlaces = 6;
constexpr double kUsualUnit = 1e6;
constexpr double kMostUnits = 1e15;

std::string_view usualDigits(double number, std::array<char, 32>& buffer) noexcept {
    const double units = std::nearbyint(number * kUsualUnit);
    if (!(std::fabs(units) < kMostUnits) || units / kUsualUnit != number) {
        return {};
    }
    auto rest = static_cast<std::uint64_t>(std::fabs(units));
    char* const end = buffer.data() + buffer.size();
    char* first = end;
    const char* last = end;
    for (int place = 0; place < kUsualPlaces; ++place, rest /= 10) {
        *--first = static_cast<char>('0' + rest % 10);
        last -= last == first + 1 && *first == '0' ? 1 : 0;
    }
    if (last != first) {
        *--first = '.';
    }
    do {
        *--first = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (units < 0.0) {
        *--first = '-';
    }
    return {first, static_cast<std::size_t>(last - first)};
}

} // namespace

void appendNumber(std::string& text, double number, char separator, int decimals) {
    if (separator == '\0') {
        number = std::round(number * powerOfTen(decimals));
    }
    // The longest double has 309 digits, the smallest one 1074 places of which 17 digits count.
    std::array<char, 400> buffer;
    const std::size_t first = text.size();
    std::array<char, 32> usual;
    if (const std::string_view digits = usualDigits(number, usual); !digits.empty()) {
        text += digits;
    } else {
        const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                number, std::chars_format::fixed);
        text.append(buffer.data(), end);
    }
    if (separator != '.') {
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), '.', separator);
    }
}
