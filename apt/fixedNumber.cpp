#include "apt/fixedNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint64_t powerOfTen(int exponent) noexcept {
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

/// "00" to "99", so that digits are written in pairs.
constexpr std::array<char, 200> kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// The digits of `number`, at least `count` of them, up to `end`; returns their start.
char* writeDigits(char* end, std::uint64_t number, int count) noexcept {
    for (; number >= 100 || count > 2; count -= 2) {
        end -= 2;
        std::memcpy(end, &kPairs[2 * (number % 100)], 2);
        number /= 100;
    }
    if (number >= 10 || count == 2) {
        end -= 2;
        std::memcpy(end, &kPairs[2 * number], 2);
    } else {
        *--end = static_cast<char>('0' + number);
    }
    return end;
}

// The magnitude of `value` in units of the last decimal, rounded, when that is beyond doubt. The
// product carries an error of at most 2^-53 of itself, far below 2^-9 under the limit of 2^43, so
// only fractions close to a half leave a doubt. Coordinates of real programs rarely do.
template<int Decimals>
bool roundQuickly(double value, std::uint64_t& units) noexcept {
    constexpr double kLimit = 0x1p43;
    constexpr double kDoubt = 0x1p-9;
    const double scaled = std::fabs(value) * static_cast<double>(powerOfTen(Decimals));
    if (!(scaled < kLimit)) {
        return false;
    }
    units = static_cast<std::uint64_t>(scaled);
    const double aboveHalf = scaled - static_cast<double>(units) - 0.5;
    units += aboveHalf > 0.0 ? 1U : 0U;
    return std::fabs(aboveHalf) > kDoubt;
}

template<int Width, int Decimals>
char* writeSlowly(char* first, char* last, double value) noexcept {
    const auto [end, error] = std::to_chars(first, last, value, std::chars_format::fixed, Decimals);
    if (error != std::errc{}) {
        return nullptr;
    }
    const std::ptrdiff_t missing = Width - (end - first);
    if (missing <= 0) {
        return end;
    }
    if (missing > last - end) {
        return nullptr;
    }
    std::memmove(first + missing, first, static_cast<std::size_t>(end - first));
    std::memset(first, ' ', static_cast<std::size_t>(missing));
    return end + missing;
}

} // namespace

template<int Width, int Decimals>
char* writeFixed(char* first, char* last, double value) noexcept {
    // A sign, 14 digits under the limit and the point stay below this size.
    constexpr std::size_t kTextSize = 24;
    static_assert(Width <= static_cast<int>(kTextSize) && Decimals > 0);
    std::uint64_t units = 0;
    if (last - first < static_cast<std::ptrdiff_t>(kTextSize) ||
        !roundQuickly<Decimals>(value, units)) {
        return writeSlowly<Width, Decimals>(first, last, value);
    }
    // From the last digit to the first, on a ground of blanks that the width shows.
    std::array<char, kTextSize> text;
    text.fill(' ');
    char* const end = text.data() + text.size();
    char* start = writeDigits(end, units % powerOfTen(Decimals), Decimals);
    *--start = '.';
    start = writeDigits(start, units / powerOfTen(Decimals), 1);
    if (std::signbit(value)) {
        *--start = '-';
    }
    start = std::min(start, end - Width);
    const auto length = static_cast<std::size_t>(end - start);
    std::memcpy(first, start, length);
    return first + length;
}

template char* writeFixed<11, 5>(char*, char*, double) noexcept;
template char* writeFixed<13, 5>(char*, char*, double) noexcept;
template char* writeFixed<10, 4>(char*, char*, double) noexcept;
