#pragma once

#include <cstdint>

/// Numbers read from text without regard to the host's locale: the decimal point is always ".".

/// The decimal integer at the start of `text`, with the syntax of `atol` (leading white space, one
/// sign, digits; 0 without digits), clamped to 32 bits instead of overflowing.
[[nodiscard]] std::int32_t readInteger(const char* text) noexcept;

/// The same in the range of long, whose limits it stops at.
[[nodiscard]] long readLong(const char* text) noexcept;

/// The real number at the start of `text`, with the syntax of `atof` (0.0 without digits).
[[nodiscard]] double readReal(const char* text) noexcept;
