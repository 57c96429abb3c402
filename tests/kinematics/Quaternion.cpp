#include "tests/kinematics/Quaternion.h"

#include <cmath>
#include <numbers>

Point operator+(const Point& a, const Point& b) noexcept {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

Point operator-(const Point& a, const Point& b) noexcept {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point operator*(const Point& a, double factor) noexcept {
    return {a[0] * factor, a[1] * factor, a[2] * factor};
}

double distance(const Point& a, const Point& b) noexcept {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

Quaternion Quaternion::About(const Point& direction, double angle) noexcept {
    const double half = angle * std::numbers::pi / 360.0;
    const double s = std::sin(half);
    return {std::cos(half), direction[0] * s, direction[1] * s, direction[2] * s};
}

Quaternion Quaternion::After(const Quaternion& q) const noexcept {
    return {w * q.w - x * q.x - y * q.y - z * q.z, w * q.x + x * q.w + y * q.z - z * q.y,
            w * q.y - x * q.z + y * q.w + z * q.x, w * q.z + x * q.y - y * q.x + z * q.w};
}

Point Quaternion::Turn(const Point& v) const noexcept {
    const Quaternion turned =
        After(Quaternion{0.0, v[0], v[1], v[2]}).After(Quaternion{w, -x, -y, -z});
    return {turned.x, turned.y, turned.z};
}

Point Quaternion::TurnAbout(const Point& centre, const Point& p) const noexcept {
    return centre + Turn(p - centre);
}
