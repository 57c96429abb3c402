#pragma once

#include <cstdint>

/// A run of decimal digits in a block, read in one pass. The value is meaningful for up to
/// kExactDigits digits; longer runs are read again from the text.
struct DigitRun {
    static constexpr int kExactDigits = 18;

    const char* begin;
    const char* end;
    std::int64_t value;

    [[nodiscard]] bool empty() const noexcept { return begin == end; }
    [[nodiscard]] bool isExact() const noexcept { return end - begin <= kExactDigits; }
};

/// The digits at `p`, perhaps none.
[[nodiscard]] DigitRun readDigits(const char* p) noexcept;

/// The value of an NC number: `integer` before the separator, `fraction` behind it, `sign` +1 or
/// -1. Either run may be empty.
///
/// The value is sign * integer (an integer product, so "-0" is +0) plus sign * fraction times 10 to
/// the power of minus the number of fraction digits, each step rounded: "12.05" is 12 + 5 * 0.01.
/// When the integer exceeds a long or the fraction an int, the value is instead the correctly
/// rounded decimal. Nothing wraps.
[[nodiscard]] double ncNumber(int sign, const DigitRun& integer, const DigitRun& fraction) noexcept;

/// The run as a 32-bit integer, clamped.
[[nodiscard]] std::int32_t clampedInteger(const DigitRun& digits) noexcept;

/// 10 to the power of `exponent`, the same double that pow(10.0, exponent) gives.
[[nodiscard]] double powerOfTen(long exponent) noexcept;
