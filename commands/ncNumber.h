#pragma once

/// Converts the digits of an NC number without sign. `integer` up to `integerEnd` are the digits
/// before the separator, `fraction` up to `fractionEnd` those behind it; both runs hold digits only
/// and may be empty. `sign` is +1 or -1.
///
/// The value is sign * integer (an integer product, so "-0" is +0) plus sign * fraction times 10 to
/// the power of minus the number of fraction digits, each step rounded: "12.05" is 12 + 5 * 0.01.
/// When the integer exceeds a long or the fraction an int, the value is instead the correctly
/// rounded decimal. Nothing wraps.
[[nodiscard]] double ncNumber(int sign, const char* integer, const char* integerEnd,
                              const char* fraction, const char* fractionEnd) noexcept;

/// 10 to the power of `exponent`, the same double that pow(10.0, exponent) gives.
[[nodiscard]] double powerOfTen(long exponent) noexcept;
