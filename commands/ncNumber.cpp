#include "commands/ncNumber.h"

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

// The digits as a T; false when they exceed it.
template<class T>
bool readDigits(const char* first, const char* last, T& number) noexcept {
    number = 0;
    return first == last || std::from_chars(first, last, number).ec == std::errc{};
}

double nearestDecimal(int sign, const char* integer, const char* integerEnd, const char* fraction,
                      const char* fractionEnd) noexcept {
    while (integer != integerEnd && *integer == '0') {
        ++integer;
    }
    // A block holds at most 255 bytes; digits beyond the buffer can come only from other callers
    // and no longer change the nearest double.
    std::array<char, 1024> text{};
    char* end = text.data();
    const auto append = [&](const char* first, const char* last) {
        for (; first != last && end + 1 < text.data() + text.size(); ++first) {
            *end++ = *first;
        }
    };
    append(integer, integerEnd);
    *end++ = '.';
    append(fraction, fractionEnd);
    double value = 0.0;
    if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range) {
        value = integer == integerEnd ? 0.0 : std::numeric_limits<double>::infinity();
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

double ncNumber(int sign, const char* integer, const char* integerEnd, const char* fraction,
                const char* fractionEnd) noexcept {
    long whole = 0;
    int part = 0;
    if (!readDigits(integer, integerEnd, whole) || !readDigits(fraction, fractionEnd, part)) {
        return nearestDecimal(sign, integer, integerEnd, fraction, fractionEnd);
    }
    const auto value = static_cast<double>(sign * whole);
    if (fraction == fractionEnd) {
        return value;
    }
    return value + static_cast<double>(sign * part) * powerOfTen(fraction - fractionEnd);
}
