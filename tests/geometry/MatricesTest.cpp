#include "softCommon/CMathUtil/gmMat3.h"
#include "softCommon/CMathUtil/gmMat4.h"
#include "tests/support/endOf.h"

#include <gtest/gtest.h>

#include <random>

namespace {

template<class Matrix>
class EveryMatrix : public testing::Test {};
using MatrixTypes = testing::Types<gmMatrix3, gmMatrix4>;
TYPED_TEST_SUITE(EveryMatrix, MatrixTypes);

TYPED_TEST(EveryMatrix, ObeysTheRulesOfArithmetic) {
    constexpr int order = sizeof(TypeParam{}[0]) / sizeof(double);
    std::mt19937 random(20240229);
    TypeParam a, b, c;
    for (int round = 0; round < 50; ++round) {
        for (int i = 0; i < order * order; ++i) { // small integers: sums of products are exact
            a[i / order][i % order] = static_cast<int>(random() % 19) - 9;
            b[i / order][i % order] = static_cast<int>(random() % 19) - 9;
        }
        const auto v = b[0];
        EXPECT_EQ((a * b) * v, a * (b * v));
        EXPECT_EQ(v * a, a.transpose() * v);
        EXPECT_EQ((a * b).transpose(), b.transpose() * a.transpose());
        EXPECT_EQ((a * b).determinant(), a.determinant() * b.determinant());
        EXPECT_EQ(a.adjoint() * a, TypeParam::identity() * a.determinant());
        EXPECT_TRUE(a.isSingular() || a.inverse() * a == TypeParam::identity());
        EXPECT_EQ(2.0 * a + -b, (a * 4.0 - b * 2.0) / 2.0);
        c = a;
        (((c += b) -= 2.0 * a) *= 3.0) /= 2.0;
        EXPECT_EQ(c, 1.5 * (b - a));
    }
    EXPECT_STREQ(endOf([&] { c[-1][0] = 0.0; }).expression, "i == 0 || i == 1 || i == 2 || i == 3");
    EXPECT_NE(endOf([&] { (void)std::as_const(c)[4]; }).expression, nullptr);
    EXPECT_STREQ(endOf([&] { c /= 9.9e-11; }).expression, "!gmIsZero(d)");
    c = TypeParam::identity();
    c[0][0] = 1e-10;
    EXPECT_EQ(c.inverse()[0][0], 1e10);
    c[0][0] = 9.9e-11;
    EXPECT_STREQ(endOf([&] { (void)c.inverse(); }).expression, "!isSingular()");
}

TEST(Transformations, MovePointsAsRows) {
    const gmVector3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const gmMatrix4 move = gmMatrix4::translate(1, 2, 3), turn = gmMatrix4::rotate(90, 5.0 * z);
    // The left matrix acts first; the homogeneous component is dropped, not divided by.
    EXPECT_EQ(gmMatrix4::rotate(90, x).transform(y), z);
    EXPECT_EQ(gmMatrix4::rotate(120, {1, 1, 1}).transform({1, 2, 3}), gmVector3(3, 1, 2));
    EXPECT_EQ(gmMatrix4::rotate(77, {1, -2, 3}).transform({2, -4, 6}), gmVector3(2, -4, 6));
    EXPECT_EQ((move * turn).transform(NullVector3), gmVector3(-2, 1, 3));
    EXPECT_EQ((turn * move).transform(NullVector3), gmVector3(1, 2, 3));
    EXPECT_EQ((move * gmMatrix4::scale(2, 3, 4)).transform({1, 1, 1}), gmVector3(4, 9, 16));
    EXPECT_EQ((EMatrix4 * 2.0).transform({1, 2, 3}), gmVector3(2, 4, 6));
    const gmMatrix3 planeMove = gmMatrix3::translate(1, 2), planeTurn = gmMatrix3::rotate(90);
    EXPECT_EQ((planeMove * planeTurn).transform({0, 0}), gmVector2(-2, 1));
    EXPECT_EQ((planeMove * gmMatrix3::scale(2, 3)).transform({1, 1}), gmVector2(4, 9));
    const gmMatrix3 plane = gmMatrix3().assign(0, 1, 2, 3, 4, 5, 6, 7, 8);
    const gmMatrix4 space =
        gmMatrix4().assign(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(space[i / 4][i % 4], i);
        EXPECT_TRUE(i > 8 || plane[i / 3][i % 3] == i) << i;
    }
}

TEST(SplineBases, EndAsTheirCurvesDo) {
    using M = gmMatrix4;
    // The rows of ends * basis are the weights in P(0), P(1), P'(0) and P'(1).
    const M ends(0, 0, 0, 1, 1, 1, 1, 1, 0, 0, 1, 0, 3, 2, 1, 0);
    const std::pair<M, M> rows[] = {
        {ends * M::hermiteBasis(), EMatrix4},
        {ends * M::bezierBasis(), M(1, 0, 0, 0, 0, 0, 0, 1, -3, 3, 0, 0, 0, 0, -3, 3)},
        {ends * M::cardinalBasis(0.7), M(0, 1, 0, 0, 0, 0, 1, 0, -0.7, 0, 0.7, 0, 0, -0.7, 0, 0.7)},
        {ends * M::tauBasis(0.25, 2),
         M(0, 1, 0, 0, 0, 0, 1, 0, -0.5, -1, 1.5, 0, 0, -0.5, -1, 1.5)},
        {ends * (6.0 * M::bsplineBasis()), M(1, 4, 1, 0, 0, 1, 4, 1, -3, 0, 3, 0, 0, -3, 0, 3)},
        {ends * (6.0 * M::tensedBSplineBasis(0.4)),
         M(0.4, 5.2, 0.4, 0, 0, 0.4, 5.2, 0.4, -1.2, 0, 1.2, 0, 0, -1.2, 0, 1.2)},
        {46.0 * M::betaSplineBasis(2, 4),
         M(-16, 36, -22, 2, 48, -84, 36, 0, -48, 36, 12, 0, 16, 28, 2, 0)},
        {M::catmullromBasis(), M::cardinalBasis(0.5)}};
    for (const auto& [basis, expected] : rows) {
        EXPECT_EQ(basis, expected) << &expected - &rows[0].second;
    }
}

} // namespace
