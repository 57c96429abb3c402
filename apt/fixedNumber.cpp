#include "apt/fixedNumber.h"

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

// The digits before the point that leave room for it, the decimals and a sign.
constexpr int wholeDigits(int width, int decimals) noexcept { return width - decimals - 2; }

/// "00" to "99", so that digits are written in pairs.
constexpr std::array<char, 200> kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// The last `Count` digits of `number`, leading zeros included, at `first`.
template<int Count>
void writeDigits(char* first, std::uint64_t number) noexcept {
    if constexpr (Count == 1) {
        *first = static_cast<char>('0' + number % 10);
    } else if constexpr (Count > 1) {
        std::memcpy(first + Count - 2, &kPairs[2 * (number % 100)], 2);
        writeDigits<Count - 2>(first, number / 100);
    }
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

// A number of `units` of the last decimal that fits the field with its sign. No branch depends on
// the digits: the field is filled with zeros first, and the leading ones become blanks.
template<int Width, int Decimals>
void writeField(char* field, std::uint64_t units, bool isNegative) noexcept {
    constexpr int kWholeDigits = wholeDigits(Width, Decimals);
    const std::uint64_t whole = units / powerOfTen(Decimals);
    writeDigits<kWholeDigits>(field + 1, whole);
    field[1 + kWholeDigits] = '.';
    writeDigits<Decimals>(field + 2 + kWholeDigits, units % powerOfTen(Decimals));
    int zeros = 0;
    for (int digits = 1; digits < kWholeDigits; ++digits) {
        zeros += whole < powerOfTen(digits) ? 1 : 0;
    }
    for (int i = 1; i < kWholeDigits; ++i) {
        field[i] = i <= zeros ? ' ' : field[i];
    }
    field[0] = ' ';
    field[zeros] = isNegative ? '-' : ' ';
}

} // namespace

template<int Width, int Decimals>
char* writeFixed(char* first, char* last, double value) noexcept {
    std::uint64_t units = 0;
    if (last - first < Width || !roundQuickly<Decimals>(value, units) ||
        units >= powerOfTen(Decimals + wholeDigits(Width, Decimals))) {
        return writeSlowly<Width, Decimals>(first, last, value);
    }
    writeField<Width, Decimals>(first, units, std::signbit(value));
    return first + Width;
}

template char* writeFixed<11, 5>(char*, char*, double) noexcept;
template char* writeFixed<13, 5>(char*, char*, double) noexcept;
template char* writeFixed<10, 4>(char*, char*, double) noexcept;
