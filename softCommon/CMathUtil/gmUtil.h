#pragma once

/// Constants and scalar functions of the geometry. They are constant expressions, so they are ready
/// before any object of static storage duration is initialised.

inline constexpr double gmEPSILON = 1e-10;                 ///< everything shorter counts as zero
inline constexpr double gmDEGTORAD = 0.017453292519943295; ///< pi / 180
inline constexpr double gmRADTODEG = 57.29577951308232;    ///< 180 / pi

/// |x| < gmEPSILON; false for NaN.
[[nodiscard]] constexpr bool gmIsZero(double x) noexcept { return -gmEPSILON < x && x < gmEPSILON; }

/// a - gmEPSILON <= b <= a + gmEPSILON; false for NaN. The bounds belong to the range, unlike those
/// of gmIsZero. That is wanted.
[[nodiscard]] constexpr bool gmFuzEQ(double a, double b) noexcept {
    return a - gmEPSILON <= b && b <= a + gmEPSILON;
}

/// 1 / x, unchecked.
[[nodiscard]] constexpr double gmInv(double x) noexcept { return 1.0 / x; }

/// x * x.
[[nodiscard]] constexpr double gmSqr(double x) noexcept { return x * x; }

/// Degrees as radians.
[[nodiscard]] constexpr double gmRadians(double degrees) noexcept { return degrees * gmDEGTORAD; }
