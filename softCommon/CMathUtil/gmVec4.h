#pragma once

#include "softCommon/CMathUtil/gmVectorBase.h"

/// A point or direction in space with its homogeneous component.
/// The base adds arithmetic, length and comparison.
class gmVector4 : public gmVectorBase<gmVector4, 4> {
public:
    /// The null vector.
    constexpr gmVector4() noexcept = default;
    constexpr gmVector4(double x, double y, double z, double w) noexcept
        : gmVectorBase({x, y, z, w}) {}

    /// Sets all elements.
    constexpr gmVector4& assign(double x, double y, double z, double w) noexcept {
        return *this = gmVector4(x, y, z, w);
    }

    /// Element `i`, 0 to 3; any other index fails the assertion.
    [[nodiscard]] constexpr double& operator[](int i) {
        gmAssert(i == 0 || i == 1 || i == 2 || i == 3);
        return m_elements[static_cast<std::size_t>(i)];
    }
    [[nodiscard]] constexpr double operator[](int i) const {
        gmAssert(i == 0 || i == 1 || i == 2 || i == 3);
        return m_elements[static_cast<std::size_t>(i)];
    }
};

inline constexpr gmVector4 NullVector4{}; ///< all elements 0
