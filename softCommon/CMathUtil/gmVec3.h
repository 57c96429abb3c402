#pragma once

#include "softCommon/CMathUtil/gmVectorBase.h"

/// A point or direction in space.
/// The base adds arithmetic, length and comparison.
class gmVector3 : public gmVectorBase<gmVector3, 3> {
public:
    /// The null vector.
    constexpr gmVector3() noexcept = default;
    constexpr gmVector3(double x, double y, double z) noexcept : gmVectorBase({x, y, z}) {}

    /// Sets all elements.
    constexpr gmVector3& assign(double x, double y, double z) noexcept {
        return *this = gmVector3(x, y, z);
    }

    /// Element `i`, 0 to 2; any other index fails the assertion.
    [[nodiscard]] constexpr double& operator[](int i) {
        gmAssert(i == 0 || i == 1 || i == 2);
        return m_elements[static_cast<std::size_t>(i)];
    }
    [[nodiscard]] constexpr double operator[](int i) const {
        gmAssert(i == 0 || i == 1 || i == 2);
        return m_elements[static_cast<std::size_t>(i)];
    }

    /// The cross product a x b.
    [[nodiscard]] friend constexpr gmVector3 cross(const gmVector3& a,
                                                   const gmVector3& b) noexcept {
        const auto& [a0, a1, a2] = a.m_elements;
        const auto& [b0, b1, b2] = b.m_elements;
        return {a1 * b2 - a2 * b1, a2 * b0 - a0 * b2, a0 * b1 - a1 * b0};
    }
};

inline constexpr gmVector3 NullVector3{}; ///< all elements 0
