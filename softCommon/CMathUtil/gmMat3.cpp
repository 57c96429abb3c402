#include "softCommon/CMathUtil/gmMat3.h"

#include <cmath>

gmMatrix3& gmMatrix3::assign(double m00, double m01, double m02, double m10, double m11, double m12,
                             double m20, double m21, double m22) noexcept {
    return *this = gmMatrix3(m00, m01, m02, m10, m11, m12, m20, m21, m22);
}

gmMatrix3 gmMatrix3::adjoint() const {
    // The rows of the cofactor matrix are the cross products of the two other rows, in cyclic
    // order.
    gmMatrix3 cofactors;
    for (int i = 0; i < 3; ++i) {
        cofactors[i] = cross((*this)[(i + 1) % 3], (*this)[(i + 2) % 3]);
    }
    return cofactors.transpose();
}

double gmMatrix3::determinant() const {
    const gmVector3& row = (*this)[0];
    const gmVector3 cofactors = cross((*this)[1], (*this)[2]);
    return row[0] * cofactors[0] + row[1] * cofactors[1] + row[2] * cofactors[2];
}

gmVector2 gmMatrix3::transform(const gmVector2& point) const {
    const gmVector3 moved = gmVector3(point[0], point[1], 1.0) * *this;
    return {moved[0], moved[1]};
}

gmMatrix3 gmMatrix3::rotate(double angle) {
    const double s = std::sin(gmRadians(angle));
    const double c = std::cos(gmRadians(angle));
    return {c, s, 0.0, -s, c, 0.0, 0.0, 0.0, 1.0};
}

gmMatrix3 gmMatrix3::scale(double x, double y) { return {x, 0.0, 0.0, 0.0, y, 0.0, 0.0, 0.0, 1.0}; }

gmMatrix3 gmMatrix3::translate(double x, double y) {
    return {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, x, y, 1.0};
}
