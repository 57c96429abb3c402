#pragma once

#include "softCommon/CMathUtil/gmMatrixBase.h"
#include "softCommon/CMathUtil/gmVec3.h"
#include "softCommon/CMathUtil/gmVec4.h"

/// A matrix of order 4, or a transformation of space. The base adds arithmetic, comparison and
/// inversion.
class gmMatrix4 : public gmMatrixBase<gmMatrix4, gmVector4, 4> {
public:
    /// All elements 0.
    constexpr gmMatrix4() noexcept = default;

    /// The elements in row order.
    constexpr gmMatrix4(double m00, double m01, double m02, double m03, double m10, double m11,
                        double m12, double m13, double m20, double m21, double m22, double m23,
                        double m30, double m31, double m32, double m33) noexcept
        : gmMatrixBase({gmVector4(m00, m01, m02, m03), gmVector4(m10, m11, m12, m13),
                        gmVector4(m20, m21, m22, m23), gmVector4(m30, m31, m32, m33)}) {}

    /// Sets all elements, in row order.
    gmMatrix4& assign(double m00, double m01, double m02, double m03, double m10, double m11,
                      double m12, double m13, double m20, double m21, double m22, double m23,
                      double m30, double m31, double m32, double m33) noexcept;

    /// The transposed matrix of cofactors.
    [[nodiscard]] gmMatrix4 adjoint() const;

    /// Expanded along row 0 with the minors of rows 1 to 3.
    [[nodiscard]] double determinant() const;

    /// The point (x, y, z) as the row (x, y, z, 1) times this matrix, without its fourth component;
    /// nothing is divided by that component.
    [[nodiscard]] gmVector3 transform(const gmVector3& point) const;

    /// Rotation by `angle` degrees about the line from the origin along `axis`, right-handed.
    /// Precondition: the length of `axis` is not gmIsZero.
    [[nodiscard]] static gmMatrix4 rotate(double angle, const gmVector3& axis);
    [[nodiscard]] static gmMatrix4 scale(double x, double y, double z);
    [[nodiscard]] static gmMatrix4 translate(double x, double y, double z);

    /// The bases B of cubic curves P(t) = (t^3, t^2, t, 1) * B * (p0, p1, p2, p3), t from 0 to 1.
    [[nodiscard]] static gmMatrix4 bezierBasis();
    /// Uniform knots.
    [[nodiscard]] static gmMatrix4 bsplineBasis();
    [[nodiscard]] static gmMatrix4 catmullromBasis();
    /// For the points p0, p1 and the tangents r0, r1 in the place of p2, p3.
    [[nodiscard]] static gmMatrix4 hermiteBasis();
    /// Tension `t`: 1 gives the B-spline, 0 a curve from p1 to p2 with its tangents at rest.
    [[nodiscard]] static gmMatrix4 tensedBSplineBasis(double t);
    /// From p1 to p2; the tangent at p1 is a * (p2 - p0).
    [[nodiscard]] static gmMatrix4 cardinalBasis(double a);
    /// From p1 to p2; the tangent at p1 is b * (a * (p1 - p0) + (1 - a) * (p2 - p1)): the bias `a`
    /// weighs the chord that arrives, `b` scales both. tauBasis(1/2, 2c) is cardinalBasis(c).
    [[nodiscard]] static gmMatrix4 tauBasis(double a, double b);
    /// Barsky's beta-spline with bias `b1` and tension `b2`; (1, 0) gives the B-spline.
    /// Precondition: 2 b1^3 + 4 b1^2 + 4 b1 + b2 + 2 is not gmIsZero.
    [[nodiscard]] static gmMatrix4 betaSplineBasis(double b1, double b2);
};

inline constexpr gmMatrix4 EMatrix4 = gmMatrix4::identity(); ///< the identity matrix
