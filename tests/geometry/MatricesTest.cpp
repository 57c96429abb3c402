#include "softCommon/CMathUtil/gmMat3.h"
#include "softCommon/CMathUtil/gmMat4.h"
#include "tests/geometry/preconditionFailure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace {

template<class Matrix>
class EveryMatrix : public testing::Test {
protected:
    static constexpr int kOrder = sizeof(Matrix{}[0]) / sizeof(double);
    using Row = std::decay_t<decltype(Matrix{}[0])>;

    /// Small integers, so that sums of products are exact.
    Matrix random() {
        Matrix m;
        for (int i = 0; i < kOrder; ++i) {
            for (int j = 0; j < kOrder; ++j) {
                m[i][j] = static_cast<double>(static_cast<int>(m_random() % 19) - 9);
            }
        }
        return m;
    }

private:
    std::mt19937 m_random{20240229};
};

using MatrixTypes = testing::Types<gmMatrix3, gmMatrix4>;
TYPED_TEST_SUITE(EveryMatrix, MatrixTypes);

TYPED_TEST(EveryMatrix, ObeysTheRulesOfArithmetic) {
    const TypeParam unit = TypeParam::identity();
    int inverted = 0;
    for (int round = 0; round < 50; ++round) {
        const TypeParam a = this->random();
        const TypeParam b = this->random();
        const typename TestFixture::Row v = this->random()[0];
        EXPECT_EQ(a * unit, a);
        EXPECT_EQ(v * (a * b), (v * a) * b);
        EXPECT_EQ((a * b) * v, a * (b * v));
        EXPECT_EQ(v * a, a.transpose() * v);
        EXPECT_EQ((a * b).transpose(), b.transpose() * a.transpose());
        EXPECT_EQ((a * b).determinant(), a.determinant() * b.determinant());
        EXPECT_EQ(a.adjoint() * a, unit * a.determinant());
        if (!a.isSingular()) {
            EXPECT_EQ(a.inverse() * a, unit);
            ++inverted;
        }
        EXPECT_EQ(2.0 * a + -b, (a * 4.0 - b * 2.0) / 2.0);

        TypeParam inPlace = a;
        inPlace += b;
        inPlace -= 2.0 * a;
        inPlace *= 3.0;
        inPlace /= 2.0;
        EXPECT_EQ(inPlace, 1.5 * (b - a));
        inPlace = a;
        inPlace *= inPlace;
        EXPECT_EQ(inPlace, a * a);
    }
    EXPECT_GT(inverted, 40);
}

TYPED_TEST(EveryMatrix, ChecksItsPreconditions) {
    TypeParam m = TypeParam::identity();
    const TypeParam& constant = m;
    for (const int i : {-1, 4, std::numeric_limits<int>::max()}) {
        const char* const text = "i == 0 || i == 1 || i == 2 || i == 3";
        EXPECT_EQ(preconditionFailure([&] { m[i][0] = 0.0; }), text) << i;
        EXPECT_EQ(preconditionFailure([&] { (void)constant[i]; }), text) << i;
    }
    EXPECT_NE(preconditionFailure([&] { m[0][this->kOrder] = 0.0; }), "");
    EXPECT_EQ(preconditionFailure([&] { m /= 9.9e-11; }), "!gmIsZero(d)");
    EXPECT_EQ(preconditionFailure([&] { (void)(m / 0.0); }), "!gmIsZero(d)");
    m[0][0] = 9.9e-11;
    EXPECT_EQ(preconditionFailure([&] { (void)m.inverse(); }), "!isSingular()");
    m[0][0] = 1e-10;
    EXPECT_EQ(preconditionFailure([&] { (void)m.inverse(); }), "");
}

TEST(Matrices, RowThreeOfOrderThreeTakesPartInNothing) {
    gmMatrix3 m = EMatrix3;
    EXPECT_EQ(preconditionFailure([&] { m[3] = gmVector3(7, 7, 7); }), "");
    EXPECT_EQ(m, EMatrix3);
    EXPECT_EQ(m.determinant(), 1.0);
    EXPECT_EQ((m * m + m.transpose())[3], NullVector3);
}

TEST(Matrices, AreFilledRowByRowAndComparedWithTolerance) {
    const gmMatrix3 three(0, 1, 2, 10, 11, 12, 20, 21, 22);
    gmMatrix4 four(0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23, 30, 31, 32, 33);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(four[i][j], 10 * i + j);
            EXPECT_TRUE(i == 3 || j == 3 || three[i][j] == 10 * i + j) << i << j;
        }
    }
    const gmMatrix4 reference = four;
    four[3][3] += 5e-11;
    EXPECT_TRUE(four == reference && !(four != reference));
    four[3][3] += 1e-10;
    EXPECT_TRUE(four != reference && !(four == reference));
    EXPECT_EQ(gmMatrix3().assign(0, 1, 2, 10, 11, 12, 20, 21, 22), three);
    EXPECT_EQ(four.assign(0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23, 30, 31, 32, 33), reference);
}

TEST(Transformations, MovePointsAsRows) {
    struct Row {
        gmMatrix4 matrix;
        gmVector3 point;
        gmVector3 expected;
    };
    const gmVector3 x(1, 0, 0);
    const gmVector3 y(0, 1, 0);
    const gmVector3 z(0, 0, 1);
    const gmMatrix4 move = gmMatrix4::translate(1, 2, 3);
    const gmMatrix4 turn = gmMatrix4::rotate(90, 5.0 * z);
    const gmMatrix4 stretch = gmMatrix4::scale(2, 3, 4);
    const double h = std::sqrt(0.5);
    const Row rows[] = {
        {move, NullVector3, {1, 2, 3}},
        {stretch, {1, 1, 1}, {2, 3, 4}},
        {turn, x, y},
        {gmMatrix4::rotate(90, x), y, z},
        {gmMatrix4::rotate(90, y), z, x},
        {gmMatrix4::rotate(-90, y), x, z},
        {gmMatrix4::rotate(45, z), x, {h, h, 0}},
        {gmMatrix4::rotate(120, {1, 1, 1}), {1, 2, 3}, {3, 1, 2}},
        {gmMatrix4::rotate(77, {1, -2, 3}), {2, -4, 6}, {2, -4, 6}},
        // The left matrix acts first.
        {move * turn, NullVector3, {-2, 1, 3}},
        {turn * move, NullVector3, {1, 2, 3}},
        {stretch * move, {1, 1, 1}, {3, 5, 7}},
        {move * stretch, {1, 1, 1}, {4, 9, 16}},
        // The homogeneous component is dropped, not divided by.
        {EMatrix4 * 2.0, {1, 2, 3}, {2, 4, 6}},
    };
    for (const Row& row : rows) {
        const gmVector3 moved = row.matrix.transform(row.point);
        EXPECT_EQ(moved, row.expected) << &row - rows;
    }
    EXPECT_EQ(preconditionFailure([] { (void)gmMatrix4::rotate(90, NullVector3); }),
              "!gmIsZero(len)");

    const gmMatrix3 planeMove = gmMatrix3::translate(1, 2);
    const gmMatrix3 planeTurn = gmMatrix3::rotate(90);
    EXPECT_EQ(planeTurn.transform({1, 0}), gmVector2(0, 1));
    EXPECT_EQ((planeMove * planeTurn).transform({0, 0}), gmVector2(-2, 1));
    EXPECT_EQ((planeTurn * planeMove).transform({0, 0}), gmVector2(1, 2));
    EXPECT_EQ((gmMatrix3::scale(2, 3) * 2.0).transform({1, 1}), gmVector2(4, 6));
}

TEST(SplineBases, AgreeWhereTheCurvesDo) {
    EXPECT_EQ(gmMatrix4::tensedBSplineBasis(1), gmMatrix4::bsplineBasis());
    EXPECT_EQ(gmMatrix4::betaSplineBasis(1, 0), gmMatrix4::bsplineBasis());
    EXPECT_EQ(gmMatrix4::cardinalBasis(0.5), gmMatrix4::catmullromBasis());
    EXPECT_EQ(gmMatrix4::tauBasis(0.5, 1.4), gmMatrix4::cardinalBasis(0.7));
    EXPECT_EQ(6.0 * gmMatrix4::tensedBSplineBasis(0.4)[0], gmVector4(-0.4, 8.4, -8.4, 0.4));
    EXPECT_EQ(preconditionFailure([] { (void)gmMatrix4::betaSplineBasis(0, -2); }), "!gmIsZero(d)");
    for (const gmMatrix4& basis :
         {gmMatrix4::bsplineBasis(), gmMatrix4::tensedBSplineBasis(0.3),
          gmMatrix4::tauBasis(0.2, 1.7), gmMatrix4::betaSplineBasis(2.0, 5)}) {
        // The weights of the points add up to 1 for every t.
        EXPECT_EQ(basis * gmVector4(1, 1, 1, 1), gmVector4(0, 0, 0, 1)) << basis[0][0];
    }
}

TEST(SplineBases, EndAndJoinAsTheirCurvesDo) {
    // The rows of ends * basis are the weights in P(0), P(1), P'(0) and P'(1).
    const gmMatrix4 ends(0, 0, 0, 1, 1, 1, 1, 1, 0, 0, 1, 0, 3, 2, 1, 0);
    EXPECT_EQ(ends * gmMatrix4::hermiteBasis(), EMatrix4);
    EXPECT_EQ(ends * gmMatrix4::bezierBasis(),
              gmMatrix4(1, 0, 0, 0, 0, 0, 0, 1, -3, 3, 0, 0, 0, 0, -3, 3));
    EXPECT_EQ(ends * gmMatrix4::cardinalBasis(0.7),
              gmMatrix4(0, 1, 0, 0, 0, 0, 1, 0, -0.7, 0, 0.7, 0, 0, -0.7, 0, 0.7));
    EXPECT_EQ(ends * gmMatrix4::tauBasis(0.25, 2),
              gmMatrix4(0, 1, 0, 0, 0, 0, 1, 0, -0.5, -1, 1.5, 0, 0, -0.5, -1, 1.5));
    EXPECT_EQ(ends * (6.0 * gmMatrix4::bsplineBasis()),
              gmMatrix4(1, 4, 1, 0, 0, 1, 4, 1, -3, 0, 3, 0, 0, -3, 0, 3));

    // The beta-spline's next segment, whose points are one further on, starts at P(1) with b1 times
    // the tangent and with the curvature that b2 shifts along the tangent.
    const double b1 = 1.5;
    const double b2 = 4.0;
    const gmMatrix4 beta = gmMatrix4::betaSplineBasis(b1, b2);
    const auto next = [&](const gmVector4& powers) {
        const gmVector4 weights = powers * beta;
        return gmVector4(0, weights[0], weights[1], weights[2]);
    };
    const gmVector4 tangent = ends[3] * beta;
    EXPECT_EQ(next(ends[0]), ends[1] * beta);
    EXPECT_EQ(next(ends[2]), b1 * tangent);
    EXPECT_EQ(next({0, 2, 0, 0}), b1 * b1 * (gmVector4(6, 2, 0, 0) * beta) + b2 * tangent);
}

} // namespace
