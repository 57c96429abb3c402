#include "apt/fixedNumber.h"

#include <array>
#include <bit>
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

// The magnitude of `value` in units of the last decimal, rounded, when that is beyond doubt and
// fits `Digits` digits. The product is rounded to a double, but never across a tie: below 2^52 a
// tie is a double itself, so a product above or below one stays on its side of it or becomes equal
// to it, and only the latter leaves a doubt.
template<int Digits, int Decimals>
bool roundQuickly(double value, std::uint64_t& units) noexcept {
    constexpr auto kLimit = static_cast<double>(powerOfTen(Digits) - 1);
    static_assert(kLimit < 0x1p52);
    const double scaled = std::fabs(value) * static_cast<double>(powerOfTen(Decimals));
    if (!(scaled < kLimit)) {
        return false;
    }
    const auto below = static_cast<std::int64_t>(scaled);
    const double aboveHalf = scaled - static_cast<double>(below) - 0.5;
    units = static_cast<std::uint64_t>(below) + (aboveHalf > 0.0 ? 1U : 0U);
    return aboveHalf != 0.0;
}

template<int Width, int Decimals>
[[gnu::noinline]] char* writeSlowly(char* first, char* last, double value) noexcept {
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

// Up to eight bytes of text in one word, the first in its lowest byte.
using TextWord = std::uint64_t;

template<std::size_t Count>
void store(char* text, TextWord word) noexcept {
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    std::memcpy(text, &word, Count);
}

// "00" to "99", so that digits are made in pairs.
constexpr std::array<std::uint16_t, 100> kPairs = [] {
    std::array<std::uint16_t, 100> pairs{};
    for (unsigned i = 0; i < pairs.size(); ++i) {
        pairs[i] = static_cast<std::uint16_t>('0' + i / 10 + (('0' + i % 10) << 8));
    }
    return pairs;
}();

// The digits of `number`, which is below 10^Count, with its leading zeros.
template<int Count>
constexpr TextWord digits(std::uint32_t number) noexcept {
    if constexpr (Count == 1) {
        return '0' + number;
    } else if constexpr (Count == 2) {
        return kPairs[number];
    } else {
        constexpr int kShift = 8 * (Count - 2);
        return digits<Count - 2>(number / 100) | digits<2>(number % 100) << kShift;
    }
}

// A number of `units` of the last decimal that fits the field with its sign. No branch depends on
// the digits: the leading zeros become blanks by flipping the bit in which they differ, and the
// sign overwrites the last blank.
template<int Width, int Decimals>
void writeField(char* field, std::uint64_t units, bool isNegative) noexcept {
    constexpr int kWhole = wholeDigits(Width, Decimals);
    const auto whole = static_cast<std::uint32_t>(units / powerOfTen(Decimals));
    const auto decimals = static_cast<std::uint32_t>(units % powerOfTen(Decimals));
    const TextWord text = digits<kWhole>(whole);
    constexpr TextWord kUnitsDigit = TextWord{1} << (8 * (kWhole - 1));
    const int zeroBits = std::countr_zero((text ^ digits<kWhole>(0)) | kUnitsDigit) & ~7;
    constexpr TextWord kZerosToBlanks = 0x1010'1010'1010'1010;
    const TextWord blanks = kZerosToBlanks & ((TextWord{1} << zeroBits) - 1);
    field[0] = ' ';
    store<kWhole>(field + 1, text ^ blanks);
    field[zeroBits / 8] = isNegative ? '-' : ' ';
    field[1 + kWhole] = '.';
    store<Decimals>(field + 2 + kWhole, digits<Decimals>(decimals));
}

} // namespace

template<int Width, int Decimals>
char* writeFixed(char* first, char* last, double value) noexcept {
    std::uint64_t units = 0;
    if (last - first < Width ||
        !roundQuickly<wholeDigits(Width, Decimals) + Decimals, Decimals>(value, units)) {
        return writeSlowly<Width, Decimals>(first, last, value);
    }
    writeField<Width, Decimals>(first, units, std::signbit(value));
    return first + Width;
}

template char* writeFixed<11, 5>(char*, char*, double) noexcept;
template char* writeFixed<13, 5>(char*, char*, double) noexcept;
template char* writeFixed<10, 4>(char*, char*, double) noexcept;
