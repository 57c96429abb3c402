#include "commands/ncNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace {

constexpr std::array<double, 23> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::array<double, 23> kNegativePowers = {
    1e-0,  1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
    1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};

// Runs of up to this many digits fit the integer types whatever the digits are.
constexpr std::ptrdiff_t kSafeIntegerDigits = std::numeric_limits<std::int64_t>::digits10;
constexpr std::ptrdiff_t kSafeFractionDigits = std::numeric_limits<std::int32_t>::digits10;

// The value of a digit; other bytes have values beyond 9.
unsigned digitValue(char c) noexcept { return static_cast<unsigned char>(c) - unsigned{'0'}; }

// The digits from `p` on as a number, which wraps in a run that is too long; moves `p` behind them.
std::int64_t takeDigits(const char*& p) noexcept {
    std::uint64_t number = 0;
    for (unsigned digit = digitValue(*p); digit <= 9; digit = digitValue(*++p)) {
        number = number * 10 + digit;
    }
    return static_cast<std::int64_t>(number);
}

double combine(int sign, std::int64_t integer, std::int64_t fraction,
               double unitOfFraction) noexcept {
    return static_cast<double>(sign * integer) +
           static_cast<double>(sign * fraction) * unitOfFraction;
}

// A run of digits as a T; false when it exceeds it.
template<class T>
bool fits(const char* first, const char* last, T& number) noexcept {
    number = 0;
    return first == last || std::from_chars(first, last, number).ec == std::errc{};
}

// `text` has a point in its place or none.
double nearestDouble(const char* text, const char* end, bool isBelowOne) noexcept {
    double value = 0.0;
    if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range) {
        value = isBelowOne ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

double nearestDecimal(int sign, const char* integer, const char* integerEnd, const char* fraction,
                      const char* fractionEnd) noexcept {
    const char* const significant =
        std::find_if(integer, integerEnd, [](char c) { return c != '0'; });
    const bool isBelowOne = significant == integerEnd;
    if (fraction == integerEnd + 1 && *integerEnd == '.') {
        return sign * nearestDouble(integer, fractionEnd, isBelowOne);
    }
    // Digits beyond the buffer no longer change the nearest double.
    std::array<char, 1024> text;
    char* end = text.data();
    const auto append = [&](const char* first, const char* last) {
        for (; first != last && end + 1 < text.data() + text.size(); ++first) {
            *end++ = *first;
        }
    };
    append(significant, integerEnd);
    *end++ = '.';
    append(fraction, fractionEnd);
    return sign * nearestDouble(text.data(), end, isBelowOne);
}

// The way of numbers with so many digits that their size must be looked at.
[[gnu::noinline]] double longNumber(int sign, const char* integer, const char* integerEnd,
                                    const char* fraction, const char* fractionEnd) noexcept {
    std::int64_t whole = 0;
    std::int32_t part = 0;
    // What an expression yields mostly has many digits behind the point.
    const bool isTooLong = fractionEnd - fraction > kSafeFractionDigits + 1 && *fraction != '0';
    if (isTooLong || !fits(integer, integerEnd, whole) || !fits(fraction, fractionEnd, part)) {
        return nearestDecimal(sign, integer, integerEnd, fraction, fractionEnd);
    }
    return combine(sign, whole, part, powerOfTen(fraction - fractionEnd));
}

std::int32_t signedNumber(const char* text) noexcept {
    const long number = std::strtol(text, nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number,
                                                      std::numeric_limits<std::int32_t>::min(),
                                                      std::numeric_limits<std::int32_t>::max()));
}

} // namespace

double powerOfTen(long exponent) noexcept {
    const auto magnitude = static_cast<std::size_t>(std::labs(exponent));
    if (magnitude < kPowers.size()) {
        return exponent < 0 ? kNegativePowers[magnitude] : kPowers[magnitude];
    }
    return std::pow(10.0, static_cast<double>(exponent));
}

NCNumber readNumber(const char* text, int sign, char separator) noexcept {
    const char* end = text;
    const std::int64_t whole = takeDigits(end);
    const char* const integerEnd = end;
    const char* fraction = end;
    std::int64_t part = 0;
    if (separator != '\0' && *end == separator) {
        fraction = ++end;
        part = takeDigits(end);
    }
    if (integerEnd - text > kSafeIntegerDigits || end - fraction > kSafeFractionDigits) {
        return {longNumber(sign, text, integerEnd, fraction, end), end};
    }
    return {combine(sign, whole, part, kNegativePowers[static_cast<std::size_t>(end - fraction)]),
            end};
}

std::int32_t readCommandNumber(const char* text) noexcept {
    if (digitValue(*text) > 9) {
        return signedNumber(text);
    }
    const char* end = text;
    const std::int64_t number = takeDigits(end);
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    std::int32_t exact = 0;
    if (end - text > kSafeIntegerDigits) {
        return fits(text, end, exact) ? exact : std::numeric_limits<std::int32_t>::max();
    }
    return static_cast<std::int32_t>(std::min(number, kHighest));
}
