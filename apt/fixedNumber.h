#pragma once

/// Writes `value` exactly as printf's "%{Width}.{Decimals}f" does in the "C" locale: right-aligned,
/// rounded half to even on the exact binary value, with the sign of a negative zero, "inf" and
/// "nan" by name. Returns the end of the text, or null when it does not fit before `last`; nothing
/// is terminated. The formats of the APT statements are <11, 5>, <13, 5> and <10, 4>.
template<int Width, int Decimals>
[[nodiscard]] char* writeFixed(char* first, char* last, double value) noexcept;

extern template char* writeFixed<11, 5>(char*, char*, double) noexcept;
extern template char* writeFixed<13, 5>(char*, char*, double) noexcept;
extern template char* writeFixed<10, 4>(char*, char*, double) noexcept;
