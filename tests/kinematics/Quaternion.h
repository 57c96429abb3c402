#pragma once

#include <array>

/// The tests' own computation of rotations, which knows neither matrices nor the house's vectors.
using Point = std::array<double, 3>;

[[nodiscard]] Point operator+(const Point& a, const Point& b) noexcept;
[[nodiscard]] Point operator-(const Point& a, const Point& b) noexcept;
[[nodiscard]] Point operator*(const Point& a, double factor) noexcept;
[[nodiscard]] double distance(const Point& a, const Point& b) noexcept;

struct Quaternion {
    double w = 1.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    /// Right-handed about a direction of length 1, degrees.
    [[nodiscard]] static Quaternion About(const Point& direction, double angle) noexcept;
    /// The rotation that `first` and then this one make.
    [[nodiscard]] Quaternion After(const Quaternion& first) const noexcept;
    [[nodiscard]] Point Turn(const Point& v) const noexcept;
    [[nodiscard]] Point TurnAbout(const Point& centre, const Point& p) const noexcept;
};
