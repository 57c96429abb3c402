#pragma once

#include "softCommon/CMathUtil/gmVectorBase.h"

/// A point or direction in the plane.
/// The base adds arithmetic, length and comparison.
class gmVector2 : public gmVectorBase<gmVector2, 2> {
public:
    /// The null vector.
    constexpr gmVector2() noexcept = default;
    constexpr gmVector2(double x, double y) noexcept : gmVectorBase({x, y}) {}

    /// Sets all elements.
    constexpr gmVector2& assign(double x, double y) noexcept { return *this = gmVector2(x, y); }

    /// Element `i`, 0 to 1; any other index fails the assertion.
    [[nodiscard]] constexpr double& operator[](int i) {
        gmAssert(i == 0 || i == 1);
        return m_elements[static_cast<std::size_t>(i)];
    }
    [[nodiscard]] constexpr double operator[](int i) const {
        gmAssert(i == 0 || i == 1);
        return m_elements[static_cast<std::size_t>(i)];
    }
};

inline constexpr gmVector2 NullVector2{}; ///< all elements 0
