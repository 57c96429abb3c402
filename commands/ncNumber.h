#pragma once

#include <cstdint>

/// A number of an NC word, without its sign.
struct NCNumber {
    double value;
    const char* end; ///< behind the last digit or the separator; the start when there is no number
};

/// Reads digits, the separator and further digits at `text`; each of the three may be missing, and
/// a separator of 0 never stands there. `sign` is +1 or -1.
///
/// The value is sign * integer (an integer product, so "-0" is +0) plus sign * fraction times 10 to
/// the power of minus the number of fraction digits, each step rounded: "12.05" is 12 + 5 * 0.01.
/// When the integer exceeds 64 bits or the fraction 32, the value is instead the correctly rounded
/// decimal. Nothing wraps.
[[nodiscard]] NCNumber readNumber(const char* text, int sign, char separator) noexcept;

/// The number at `text` as a 32-bit integer, clamped: blanks, a sign and digits, each of which may
/// be missing, as atol reads them. Only what a host's command counts as digits has more than
/// digits.
[[nodiscard]] std::int32_t readCommandNumber(const char* text) noexcept;

/// 10 to the power of `exponent`, the same double that pow(10.0, exponent) gives.
[[nodiscard]] double powerOfTen(long exponent) noexcept;
