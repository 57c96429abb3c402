#pragma once

#include "softCommon/CMathUtil/gmAssert.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <array>
#include <cmath>
#include <cstddef>

/// What the vectors of every size have in common. `Vector` is the class that derives from this one;
/// every result is a `Vector`. The elements are held in place and start at 0.
template<class Vector, std::size_t Size>
class gmVectorBase {
public:
    /// Adds element by element.
    constexpr Vector& operator+=(const Vector& v) noexcept {
        for (std::size_t i = 0; i < Size; ++i) {
            m_elements[i] += v.m_elements[i];
        }
        return self();
    }

    /// Subtracts element by element.
    constexpr Vector& operator-=(const Vector& v) noexcept {
        for (std::size_t i = 0; i < Size; ++i) {
            m_elements[i] -= v.m_elements[i];
        }
        return self();
    }

    /// Multiplies every element by `c`.
    constexpr Vector& operator*=(double c) noexcept {
        for (double& element : m_elements) {
            element *= c;
        }
        return self();
    }

    /// Divides every element by `c`. Precondition: !gmIsZero(c).
    constexpr Vector& operator/=(double c) {
        gmAssert(!gmIsZero(c));
        for (double& element : m_elements) {
            element /= c;
        }
        return self();
    }

    /// The Euclidean norm, >= 0.
    [[nodiscard]] double length() const noexcept {
        double sum = 0.0;
        for (const double element : m_elements) {
            sum += gmSqr(element);
        }
        return std::sqrt(sum);
    }

    /// Divides the vector by its length, in place. Precondition: the length is not gmIsZero.
    Vector& normalize() {
        const double len = length();
        gmAssert(!gmIsZero(len));
        return *this /= len;
    }

    /// Negates every element; that of a zero is -0.0.
    [[nodiscard]] constexpr Vector operator-() const noexcept {
        Vector negative;
        for (std::size_t i = 0; i < Size; ++i) {
            negative.m_elements[i] = -m_elements[i];
        }
        return negative;
    }

    [[nodiscard]] friend constexpr Vector operator+(const Vector& a, const Vector& b) noexcept {
        return Vector(a) += b;
    }

    [[nodiscard]] friend constexpr Vector operator-(const Vector& a, const Vector& b) noexcept {
        return Vector(a) -= b;
    }

    [[nodiscard]] friend constexpr Vector operator*(const Vector& v, double c) noexcept {
        return Vector(v) *= c;
    }

    [[nodiscard]] friend constexpr Vector operator*(double c, const Vector& v) noexcept {
        return Vector(v) *= c;
    }

    /// Precondition: !gmIsZero(c).
    [[nodiscard]] friend constexpr Vector operator/(const Vector& v, double c) {
        return Vector(v) /= c;
    }

    /// Whether every element of `b` is gmFuzEQ to that of `a`; `!=` is the negation.
    [[nodiscard]] friend constexpr bool operator==(const Vector& a, const Vector& b) noexcept {
        for (std::size_t i = 0; i < Size; ++i) {
            if (!gmFuzEQ(a.m_elements[i], b.m_elements[i])) {
                return false;
            }
        }
        return true;
    }

protected:
    constexpr gmVectorBase() noexcept = default;
    constexpr explicit gmVectorBase(const std::array<double, Size>& elements) noexcept
        : m_elements(elements) {}

    std::array<double, Size> m_elements{};

private:
    constexpr Vector& self() noexcept { return static_cast<Vector&>(*this); }
};
