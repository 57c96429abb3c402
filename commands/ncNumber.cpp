#include "commands/ncNumber.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr std::array<double, 23> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::array<double, 23> kNegativePowers = {
    1e-0,  1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
    1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};

// The whole run as a number; false when it exceeds a 64-bit integer.
bool readWhole(const DigitRun& digits, std::int64_t& number) noexcept {
    number = digits.value;
    return digits.isExact() || std::from_chars(digits.begin, digits.end, number).ec == std::errc{};
}

double nearestDecimal(int sign, const DigitRun& integer, const DigitRun& fraction) noexcept {
    const char* const significant =
        std::find_if(integer.begin, integer.end, [](char c) { return c != '0'; });
    // A block holds at most 255 bytes; digits beyond the buffer can come only from other callers
    // and no longer change the nearest double.
    std::array<char, 1024> text{};
    char* end = text.data();
    const auto append = [&](const char* first, const char* last) {
        for (; first != last && end + 1 < text.data() + text.size(); ++first) {
            *end++ = *first;
        }
    };
    append(significant, integer.end);
    *end++ = '.';
    append(fraction.begin, fraction.end);
    double value = 0.0;
    if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range) {
        value = significant == integer.end ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return sign * value;
}

} // namespace

double powerOfTen(long exponent) noexcept {
    const auto magnitude = static_cast<std::size_t>(std::labs(exponent));
    if (magnitude < kPowers.size()) {
        return exponent < 0 ? kNegativePowers[magnitude] : kPowers[magnitude];
    }
    return std::pow(10.0, static_cast<double>(exponent));
}

DigitRun readDigits(const char* p) noexcept {
    DigitRun run{p, p, 0};
    std::uint64_t value = 0; // wraps silently in runs that are too long to be exact
    for (; isDigitByte(*run.end); ++run.end) {
        value = value * 10 + static_cast<std::uint64_t>(*run.end - '0');
    }
    run.value = static_cast<std::int64_t>(value);
    return run;
}

double ncNumber(int sign, const DigitRun& integer, const DigitRun& fraction) noexcept {
    std::int64_t whole = integer.value;
    std::int64_t part = fraction.value;
    if (!integer.isExact() || !fraction.isExact()) {
        if (!readWhole(integer, whole) || !readWhole(fraction, part)) {
            return nearestDecimal(sign, integer, fraction);
        }
    }
    if (part > std::numeric_limits<int>::max()) {
        return nearestDecimal(sign, integer, fraction);
    }
    const auto value = static_cast<double>(sign * whole);
    if (fraction.empty()) {
        return value;
    }
    return value + static_cast<double>(sign * part) * powerOfTen(fraction.begin - fraction.end);
}

std::int32_t clampedInteger(const DigitRun& digits) noexcept {
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    return static_cast<std::int32_t>(readWhole(digits, number) ? std::min(number, kHighest)
                                                               : kHighest);
}
