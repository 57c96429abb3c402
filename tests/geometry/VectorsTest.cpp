#include "softCommon/CMathUtil/gmVec2.h"
#include "softCommon/CMathUtil/gmVec3.h"
#include "softCommon/CMathUtil/gmVec4.h"
#include "tests/support/endOf.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

template<class Vector>
class EveryVector : public testing::Test {};
using VectorTypes = testing::Types<gmVector2, gmVector3, gmVector4>;
TYPED_TEST_SUITE(EveryVector, VectorTypes);

TYPED_TEST(EveryVector, ComputesComparesAndChecksEveryElement) {
    constexpr int size = sizeof(TypeParam) / sizeof(double);
    TypeParam one, tiny;
    for (int i = 0; i < size; ++i) {
        one[i] = i + 1;
    }
    const TypeParam result = 5.0 * (one + one * 4.0 - -one) / 3.0;
    for (int i = 0; i < size; ++i) {
        EXPECT_EQ(result[i], 10.0 * (i + 1)) << i;
        EXPECT_TRUE(std::signbit((-TypeParam())[i])) << "the negative of zero keeps its sign";
        TypeParam other = one;
        other[i] += 5e-11;
        EXPECT_TRUE(one == other && !(one != other)) << i;
        other[i] += 1e-10;
        EXPECT_TRUE(one != other && !(one == other)) << i;
    }
    for (const int index : {-1, size}) {
        EXPECT_NE(endOf([&] { one[index] = 0.0; }).expression, nullptr);
        EXPECT_NE(endOf([&] { (void)std::as_const(one)[index]; }).expression, nullptr);
    }
    EXPECT_STREQ(endOf([&] { (void)(one / -9.9e-11); }).expression, "!gmIsZero(c)");
    tiny[size - 1] = -9.9e-11;
    EXPECT_STREQ(endOf([&] { tiny.normalize(); }).expression, "!gmIsZero(len)");
    tiny[size - 1] = -1e-10;
    EXPECT_EQ(tiny.normalize()[size - 1], -1.0);
}

TEST(Vectors, LengthNormalizeAndCross) {
    EXPECT_EQ(gmVector4(2, 4, 5, -6).length(), 9.0);
    EXPECT_EQ(gmVector3(0, 3, 4).normalize(), gmVector3(0, 0.6, 0.8));
    EXPECT_EQ(cross(gmVector3(1, 2, 3), gmVector3(4, 5, 7)), gmVector3(-1, 5, -3));
    EXPECT_EQ(gmVector2().assign(1, 2), gmVector2(1, 2));
    EXPECT_EQ(gmVector3().assign(1, 2, 3), gmVector3(1, 2, 3));
    EXPECT_EQ(gmVector4().assign(1, 2, 3, 4), gmVector4(1, 2, 3, 4));
    EXPECT_FALSE(gmIsZero(1e-10)); // the two tests differ at the boundary
    EXPECT_TRUE(gmFuzEQ(0.0, -1e-10) && gmFuzEQ(0.0, 1e-10));
    EXPECT_FALSE(gmFuzEQ(0.0, -1.01e-10) || gmFuzEQ(0.0, 1.01e-10));
}

} // namespace
