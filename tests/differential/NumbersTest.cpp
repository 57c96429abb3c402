// Reading and printing of numbers against the C library, over random values from fixed seeds.

#include "apt/fixedNumber.h"
#include "commands/ncNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t limit) { return random() % limit; }

// Lengths at which types run out are as frequent as short ones; leading zeros occur.
std::string randomDigits(Random& random) {
    constexpr std::size_t kLengths[] = {0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 17, 18, 19, 20, 21, 40};
    std::string digits(kLengths[below(random, std::size(kLengths))], '0');
    const std::size_t zeros = below(random, 4) == 0 ? below(random, digits.size() + 1) : 0;
    for (std::size_t i = zeros; i < digits.size(); ++i) {
        digits[i] = static_cast<char>('0' + below(random, 10));
    }
    return digits;
}

// sign * strtol + sign * strtol * pow, as long as the types hold; else the nearest decimal.
double referenceNumber(int sign, const std::string& integer, const std::string& fraction) {
    errno = 0;
    const long whole = std::strtol(integer.c_str(), nullptr, 10);
    const long part = std::strtol(fraction.c_str(), nullptr, 10);
    if (errno == ERANGE || part > std::numeric_limits<int>::max()) {
        return sign * std::strtod((integer + "." + fraction).c_str(), nullptr);
    }
    const auto value = static_cast<double>(sign * whole);
    return fraction.empty() ? value
                            : value + static_cast<double>(sign * part) *
                                          std::pow(10.0, -static_cast<double>(fraction.size()));
}

TEST(Differential, NumbersAreReadAsTheCLibraryReadsThem) {
    Random random(20041206);
    for (int i = 0; i < 2'000'000; ++i) {
        const std::string integer = randomDigits(random);
        const std::string fraction = randomDigits(random);
        const int sign = below(random, 2) == 0 ? 1 : -1;
        const std::string text = integer + "." + fraction + "X";
        const auto [value, end] = readNumber(text.c_str(), sign, '.');
        ASSERT_STREQ(end, "X") << text;
        const double expected = referenceNumber(sign, integer, fraction);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected))
            << sign << " " << text << " gives " << value << ", not " << expected;
        const long clamped = std::min<long>(std::strtol(integer.c_str(), nullptr, 10),
                                            std::numeric_limits<std::int32_t>::max());
        ASSERT_EQ(readCommandNumber(text.c_str()), clamped) << text;
    }
}

TEST(Differential, PowersOfTenAreThoseOfPow) {
    for (long exponent = -400; exponent <= 400; ++exponent) {
        EXPECT_EQ(powerOfTen(exponent), std::pow(10.0, static_cast<double>(exponent))) << exponent;
    }
}

// Bit patterns of every exponent, coordinates, decimals near a tie, and exact ties.
double randomDouble(Random& random) {
    const auto bits = static_cast<std::int64_t>(random());
    const auto coordinate = static_cast<double>(bits % 1'000'000'000);
    switch (below(random, 5)) {
    case 0:
        return std::bit_cast<double>(bits);
    case 1:
        return coordinate / 1e5;
    case 2:
        return (coordinate + 0.5) / 1e5;
    case 3:
        return std::nextafter((coordinate + 0.5) / 1e4, below(random, 2) == 0 ? -1e300 : 1e300);
    default:
        return std::ldexp(coordinate, -static_cast<int>(below(random, 60)));
    }
}

template<int Width, int Decimals>
bool isPrintedAsByPrintf(double value) {
    std::array<char, 400> expected;
    const auto length = static_cast<std::size_t>(
        std::snprintf(expected.data(), expected.size(), "%*.*f", Width, Decimals, value));
    std::array<char, 400> text;
    const char* const end =
        writeFixed<Width, Decimals>(text.data(), text.data() + text.size(), value);
    return end == text.data() + length && std::memcmp(text.data(), expected.data(), length) == 0;
}

TEST(Differential, NumbersArePrintedAsByPrintf) {
    const auto agree = [](double value) {
        return isPrintedAsByPrintf<11, 5>(value) && isPrintedAsByPrintf<13, 5>(value) &&
               isPrintedAsByPrintf<10, 4>(value);
    };
    using Limits = std::numeric_limits<double>;
    std::vector<double> edges = {
        0.0, 0.03125, Limits::max(), Limits::denorm_min(), Limits::infinity(), Limits::quiet_NaN()};
    // Where rounding takes one more digit.
    for (double power = 1e-5; power < 1e23; power *= 10) {
        for (const double step : {0.0, 4e-6, 5e-6, 6e-6, 4e-5, 5e-5, 6e-5}) {
            edges.push_back(power - step);
        }
    }
    for (const double value : edges) {
        EXPECT_TRUE(agree(value)) << value;
        EXPECT_TRUE(agree(-value)) << value;
    }
    Random random(54);
    for (int i = 0; i < 1'000'000; ++i) {
        const double value = randomDouble(random);
        ASSERT_TRUE(agree(value)) << std::hexfloat << value;
    }
}

} // namespace
