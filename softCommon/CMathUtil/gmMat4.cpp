#include "softCommon/CMathUtil/gmMat4.h"

#include "softCommon/CMathUtil/gmMat3.h"

#include <cmath>

namespace {

/// The determinant of `m` without row `skippedRow` and column `skippedColumn`, with the sign of its
/// place.
double cofactor(const gmMatrix4& m, int skippedRow, int skippedColumn) {
    gmMatrix3 rest;
    for (int i = 0; i < 3; ++i) {
        const gmVector4& row = m[i < skippedRow ? i : i + 1];
        for (int j = 0; j < 3; ++j) {
            rest[i][j] = row[j < skippedColumn ? j : j + 1];
        }
    }
    const double minor = rest.determinant();
    return (skippedRow + skippedColumn) % 2 == 0 ? minor : -minor;
}

} // namespace

gmMatrix4& gmMatrix4::assign(double m00, double m01, double m02, double m03, double m10, double m11,
                             double m12, double m13, double m20, double m21, double m22, double m23,
                             double m30, double m31, double m32, double m33) noexcept {
    return *this = gmMatrix4(m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31,
                             m32, m33);
}

gmMatrix4 gmMatrix4::adjoint() const {
    gmMatrix4 adjoint;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            adjoint[j][i] = cofactor(*this, i, j);
        }
    }
    return adjoint;
}

double gmMatrix4::determinant() const {
    double sum = 0.0;
    for (int j = 0; j < 4; ++j) {
        sum += (*this)[0][j] * cofactor(*this, 0, j);
    }
    return sum;
}

gmVector3 gmMatrix4::transform(const gmVector3& point) const {
    const gmVector4 moved = gmVector4(point[0], point[1], point[2], 1.0) * *this;
    return {moved[0], moved[1], moved[2]};
}

gmMatrix4 gmMatrix4::rotate(double angle, const gmVector3& axis) {
    const gmVector3 unit = gmVector3(axis).normalize();
    const double x = unit[0];
    const double y = unit[1];
    const double z = unit[2];
    const double s = std::sin(gmRadians(angle));
    const double c = std::cos(gmRadians(angle));
    const double t = 1.0 - c;
    // clang-format off
    return {t * x * x + c,     t * x * y + s * z, t * x * z - s * y, 0.0,
            t * x * y - s * z, t * y * y + c,     t * y * z + s * x, 0.0,
            t * x * z + s * y, t * y * z - s * x, t * z * z + c,     0.0,
            0.0,               0.0,               0.0,               1.0};
    // clang-format on
}

gmMatrix4 gmMatrix4::scale(double x, double y, double z) {
    gmMatrix4 result = EMatrix4;
    result[0][0] = x;
    result[1][1] = y;
    result[2][2] = z;
    return result;
}

gmMatrix4 gmMatrix4::translate(double x, double y, double z) {
    gmMatrix4 result = EMatrix4;
    result[3] = {x, y, z, 1.0};
    return result;
}

// clang-format off

gmMatrix4 gmMatrix4::bezierBasis() {
    return {-1.0,  3.0, -3.0, 1.0,
             3.0, -6.0,  3.0, 0.0,
            -3.0,  3.0,  0.0, 0.0,
             1.0,  0.0,  0.0, 0.0};
}

gmMatrix4 gmMatrix4::bsplineBasis() {
    return gmMatrix4(-1.0,  3.0, -3.0, 1.0,
                      3.0, -6.0,  3.0, 0.0,
                     -3.0,  0.0,  3.0, 0.0,
                      1.0,  4.0,  1.0, 0.0) / 6.0;
}

gmMatrix4 gmMatrix4::catmullromBasis() {
    return gmMatrix4(-1.0,  3.0, -3.0,  1.0,
                      2.0, -5.0,  4.0, -1.0,
                     -1.0,  0.0,  1.0,  0.0,
                      0.0,  2.0,  0.0,  0.0) / 2.0;
}

gmMatrix4 gmMatrix4::hermiteBasis() {
    return { 2.0, -2.0,  1.0,  1.0,
            -3.0,  3.0, -2.0, -1.0,
             0.0,  0.0,  1.0,  0.0,
             1.0,  0.0,  0.0,  0.0};
}

gmMatrix4 gmMatrix4::tensedBSplineBasis(double t) {
    return gmMatrix4(      -t,  12.0 - 9.0 * t,   9.0 * t - 12.0,   t,
                      3.0 * t, 12.0 * t - 18.0, 18.0 - 15.0 * t, 0.0,
                     -3.0 * t,             0.0,         3.0 * t, 0.0,
                            t,   6.0 - 2.0 * t,               t, 0.0) / 6.0;
}

gmMatrix4 gmMatrix4::cardinalBasis(double a) {
    return {     -a, 2.0 - a,       a - 2.0,   a,
            2.0 * a, a - 3.0, 3.0 - 2.0 * a,  -a,
                 -a,     0.0,             a, 0.0,
                0.0,     1.0,           0.0, 0.0};
}

gmMatrix4 gmMatrix4::tauBasis(double a, double b) {
    const double arriving = a * b;
    const double leaving = b - arriving;
    const double both = arriving - leaving;
    // The Hermite curve of the end points p1, p2 and the tangents there.
    return hermiteBasis() * gmMatrix4(      0.0,       1.0,     0.0,     0.0,
                                            0.0,       0.0,     1.0,     0.0,
                                      -arriving,      both, leaving,     0.0,
                                            0.0, -arriving,    both, leaving);
}

gmMatrix4 gmMatrix4::betaSplineBasis(double b1, double b2) {
    const double square = gmSqr(b1);
    const double cube = square * b1;
    const double d = 2.0 * cube + 4.0 * square + 4.0 * b1 + b2 + 2.0;
    return gmMatrix4(
        -2.0 * cube, 2.0 * (b2 + cube + square + b1),        -2.0 * (b2 + square + b1 + 1.0), 2.0,
         6.0 * cube, -3.0 * (b2 + 2.0 * cube + 2.0 * square), 3.0 * (b2 + 2.0 * square),      0.0,
        -6.0 * cube, 6.0 * (cube - b1),                       6.0 * b1,                       0.0,
         2.0 * cube, b2 + 4.0 * (square + b1),                2.0,                            0.0) / d;
}

// clang-format on
