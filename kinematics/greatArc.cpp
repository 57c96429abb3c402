#include "kinematics/greatArc.h"

#include <cmath>
#include <numbers>

namespace {

double dot(const gmVector3& a, const gmVector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// The axis of coordinates that is least along `v` gives a direction across it.
gmVector3 across(const gmVector3& v) {
    int least = 0;
    for (int i = 1; i < 3; ++i) {
        least = std::abs(v[i]) < std::abs(v[least]) ? i : least;
    }
    gmVector3 aside;
    aside[least] = 1.0;
    return cross(cross(v, aside), v).normalize();
}

} // namespace

double angleBetween(const gmVector3& a, const gmVector3& b) {
    return 2.0 * std::atan2((a - b).length(), (a + b).length());
}

gmVector3 greatArc(const gmVector3& from, const gmVector3& to, double fraction) {
    constexpr double kOpposite = 1e-9; // radians
    const double angle = angleBetween(from, to);
    if (angle < kOpposite) {
        return fraction < 1.0 ? from : to;
    }
    const bool isOpposite = std::numbers::pi - angle < kOpposite;
    const gmVector3 aside = isOpposite ? across(from) : (to - from * dot(from, to)).normalize();
    return from * std::cos(fraction * angle) + aside * std::sin(fraction * angle);
}
