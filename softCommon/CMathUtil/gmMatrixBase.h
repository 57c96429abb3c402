#pragma once

#include "softCommon/CMathUtil/gmAssert.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <array>
#include <cstddef>

/// What the square matrices of both orders have in common. `Matrix` is the class that derives from
/// this one, `Row` the vector of its order. The elements are held in place, row by row, and start
/// at 0. Points are rows: a product of transformations applies its left factor first.
template<class Matrix, class Row, int Order>
class gmMatrixBase {
public:
    /// Row `i`; its element j is (*this)[i][j], and the row checks j. Any row but 0 to 3 fails the
    /// assertion, for order 3 too. That is wanted: every matrix holds four rows, and row 3 of a
    /// matrix of order 3 takes part in nothing.
    [[nodiscard]] constexpr Row& operator[](int i) {
        gmAssert(i == 0 || i == 1 || i == 2 || i == 3);
        return m_rows[static_cast<std::size_t>(i)];
    }
    [[nodiscard]] constexpr const Row& operator[](int i) const {
        gmAssert(i == 0 || i == 1 || i == 2 || i == 3);
        return m_rows[static_cast<std::size_t>(i)];
    }

    /// Adds element by element.
    constexpr Matrix& operator+=(const Matrix& m) {
        for (int i = 0; i < Order; ++i) {
            self()[i] += m[i];
        }
        return self();
    }

    /// Subtracts element by element.
    constexpr Matrix& operator-=(const Matrix& m) {
        for (int i = 0; i < Order; ++i) {
            self()[i] -= m[i];
        }
        return self();
    }

    /// Multiplies by `m` from the right.
    constexpr Matrix& operator*=(const Matrix& m) { return self() = self() * m; }

    /// Multiplies every element by `d`.
    constexpr Matrix& operator*=(double d) {
        for (int i = 0; i < Order; ++i) {
            self()[i] *= d;
        }
        return self();
    }

    /// Divides every element by `d`. Precondition: !gmIsZero(d).
    constexpr Matrix& operator/=(double d) {
        gmAssert(!gmIsZero(d));
        for (int i = 0; i < Order; ++i) {
            self()[i] /= d;
        }
        return self();
    }

    /// Negates every element; that of a zero is -0.0.
    [[nodiscard]] constexpr Matrix operator-() const {
        Matrix negative;
        for (int i = 0; i < Order; ++i) {
            negative[i] = -self()[i];
        }
        return negative;
    }

    [[nodiscard]] friend constexpr Matrix operator+(const Matrix& a, const Matrix& b) {
        return Matrix(a) += b;
    }

    [[nodiscard]] friend constexpr Matrix operator-(const Matrix& a, const Matrix& b) {
        return Matrix(a) -= b;
    }

    [[nodiscard]] friend constexpr Matrix operator*(const Matrix& a, const Matrix& b) {
        Matrix product;
        for (int i = 0; i < Order; ++i) {
            product[i] = a[i] * b;
        }
        return product;
    }

    [[nodiscard]] friend constexpr Matrix operator*(const Matrix& m, double d) {
        return Matrix(m) *= d;
    }

    [[nodiscard]] friend constexpr Matrix operator*(double d, const Matrix& m) {
        return Matrix(m) *= d;
    }

    /// Precondition: !gmIsZero(d).
    [[nodiscard]] friend constexpr Matrix operator/(const Matrix& m, double d) {
        return Matrix(m) /= d;
    }

    /// `v` as a column: element i of the result is the sum of m[i][j] * v[j].
    [[nodiscard]] friend constexpr Row operator*(const Matrix& m, const Row& v) {
        return v * m.transpose();
    }

    /// `v` as a row: element j of the result is the sum of v[i] * m[i][j].
    [[nodiscard]] friend constexpr Row operator*(const Row& v, const Matrix& m) {
        Row result = v[0] * m[0];
        for (int i = 1; i < Order; ++i) {
            result += v[i] * m[i];
        }
        return result;
    }

    /// Whether every element of `b` is gmFuzEQ to that of `a`; `!=` is the negation.
    [[nodiscard]] friend constexpr bool operator==(const Matrix& a, const Matrix& b) {
        for (int i = 0; i < Order; ++i) {
            if (a[i] != b[i]) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] constexpr Matrix transpose() const {
        Matrix transposed;
        for (int i = 0; i < Order; ++i) {
            for (int j = 0; j < Order; ++j) {
                transposed[j][i] = self()[i][j];
            }
        }
        return transposed;
    }

    /// gmIsZero of the determinant.
    [[nodiscard]] constexpr bool isSingular() const { return gmIsZero(self().determinant()); }

    /// Precondition: !isSingular().
    [[nodiscard]] constexpr Matrix inverse() const {
        gmAssert(!isSingular());
        return self().adjoint() * gmInv(self().determinant());
    }

    [[nodiscard]] static constexpr Matrix identity() {
        Matrix unit;
        for (int i = 0; i < Order; ++i) {
            unit[i][i] = 1.0;
        }
        return unit;
    }

protected:
    static constexpr std::size_t kHeldRows = 4;

    constexpr gmMatrixBase() noexcept = default;
    constexpr explicit gmMatrixBase(const std::array<Row, kHeldRows>& rows) noexcept
        : m_rows(rows) {}

private:
    constexpr Matrix& self() noexcept { return static_cast<Matrix&>(*this); }
    constexpr const Matrix& self() const noexcept { return static_cast<const Matrix&>(*this); }

    std::array<Row, kHeldRows> m_rows{};
};
