#pragma once

#include "softCommon/CMathUtil/gmMatrixBase.h"
#include "softCommon/CMathUtil/gmVec2.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// A matrix of order 3, or a transformation of the plane. The base adds arithmetic, comparison and
/// inversion.
class gmMatrix3 : public gmMatrixBase<gmMatrix3, gmVector3, 3> {
public:
    /// All elements 0.
    constexpr gmMatrix3() noexcept = default;

    /// The elements in row order.
    constexpr gmMatrix3(double m00, double m01, double m02, double m10, double m11, double m12,
                        double m20, double m21, double m22) noexcept
        : gmMatrixBase({gmVector3(m00, m01, m02), gmVector3(m10, m11, m12),
                        gmVector3(m20, m21, m22), gmVector3()}) {}

    /// Sets all elements, in row order.
    gmMatrix3& assign(double m00, double m01, double m02, double m10, double m11, double m12,
                      double m20, double m21, double m22) noexcept;

    /// The transposed matrix of cofactors.
    [[nodiscard]] gmMatrix3 adjoint() const;

    /// Expanded along row 0.
    [[nodiscard]] double determinant() const;

    /// The point (x, y) as the row (x, y, 1) times this matrix, without its third component.
    [[nodiscard]] gmVector2 transform(const gmVector2& point) const;

    /// Rotation about the origin by `angle` degrees, from x towards y.
    [[nodiscard]] static gmMatrix3 rotate(double angle);
    [[nodiscard]] static gmMatrix3 scale(double x, double y);
    [[nodiscard]] static gmMatrix3 translate(double x, double y);
};

inline constexpr gmMatrix3 EMatrix3 = gmMatrix3::identity(); ///< the identity matrix
