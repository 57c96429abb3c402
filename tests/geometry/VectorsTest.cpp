#include "softCommon/CMathUtil/gmVec2.h"
#include "softCommon/CMathUtil/gmVec3.h"
#include "softCommon/CMathUtil/gmVec4.h"
#include "tests/geometry/preconditionFailure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Scalars, ZeroTestsDifferAtTheBoundary) {
    struct Row {
        double x;
        bool isZero;
        bool equalsZero;
    };
    for (const Row& row : {Row{0.0, true, true}, Row{1e-11, true, true}, Row{1e-10, false, true},
                           Row{1.1e-10, false, false}, Row{kNaN, false, false}}) {
        for (const double x : {row.x, -row.x}) {
            EXPECT_EQ(gmIsZero(x), row.isZero) << x;
            EXPECT_EQ(gmFuzEQ(0.0, x), row.equalsZero) << x;
        }
    }
    EXPECT_EQ(gmDEGTORAD, std::numbers::pi / 180.0);
    EXPECT_EQ(gmRADTODEG, 180.0 / std::numbers::pi);
    EXPECT_EQ(gmRadians(180.0), std::numbers::pi);
    EXPECT_EQ(gmInv(gmSqr(-2.0)), 0.25);
}

template<class Vector>
class EveryVector : public testing::Test {};

using VectorTypes = testing::Types<gmVector2, gmVector3, gmVector4>;
TYPED_TEST_SUITE(EveryVector, VectorTypes);

template<class Vector>
constexpr int kSize = static_cast<int>(sizeof(Vector) / sizeof(double));

/// first, 2 first, 3 first, ...
template<class Vector>
Vector ramp(double first) {
    Vector v;
    for (int i = 0; i < kSize<Vector>; ++i) {
        v[i] = first * (i + 1);
    }
    return v;
}

TYPED_TEST(EveryVector, ComputesElementByElement) {
    static_assert(std::is_trivially_copyable_v<TypeParam>);
    const TypeParam one = ramp<TypeParam>(1.0);
    const TypeParam result = 5.0 * (one + one * 4.0 - -one) / 3.0;
    for (int i = 0; i < kSize<TypeParam>; ++i) {
        EXPECT_EQ(result[i], 10.0 * (i + 1)) << i;
        EXPECT_TRUE(std::signbit((-TypeParam())[i])) << "the negative of zero keeps its sign";
    }
}

TYPED_TEST(EveryVector, ComparesEveryElementWithTolerance) {
    const TypeParam reference = ramp<TypeParam>(1.0);
    for (int i = 0; i < kSize<TypeParam>; ++i) {
        TypeParam other = reference;
        other[i] += 5e-11;
        EXPECT_TRUE(reference == other && !(reference != other)) << i;
        other[i] += 1e-10;
        EXPECT_TRUE(reference != other && !(reference == other)) << i;
        other[i] = kNaN;
        EXPECT_TRUE(other != other) << i;
    }
}

TYPED_TEST(EveryVector, ChecksItsPreconditions) {
    constexpr int size = kSize<TypeParam>;
    std::string indexText = "i == 0";
    for (int i = 1; i < size; ++i) {
        indexText += " || i == " + std::to_string(i);
    }
    TypeParam v = ramp<TypeParam>(1.0);
    const TypeParam& constant = v;
    for (const int i : {-1, size, size + 1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(preconditionFailure([&] { v[i] = 0.0; }), indexText) << i;
        EXPECT_EQ(preconditionFailure([&] { (void)constant[i]; }), indexText) << i;
    }
    EXPECT_EQ(preconditionFailure([&] { v /= 0.0; }), "!gmIsZero(c)");
    EXPECT_EQ(preconditionFailure([&] { (void)(v / -9.9e-11); }), "!gmIsZero(c)");
    EXPECT_EQ(preconditionFailure([&] { (void)(v / 1e-10); }), "");

    TypeParam tiny;
    tiny[size - 1] = -9.9e-11;
    EXPECT_EQ(preconditionFailure([&] { tiny.normalize(); }), "!gmIsZero(len)");
    EXPECT_EQ(tiny[size - 1], -9.9e-11) << "a failed precondition leaves the vector alone";
    tiny[size - 1] = -1e-10;
    EXPECT_EQ(preconditionFailure([&] { tiny.normalize(); }), "");
    EXPECT_EQ(tiny[size - 1], -1.0);
}

TEST(Vectors, LengthNormalizeAndAssign) {
    EXPECT_EQ(gmVector2(3, -4).length(), 5.0);
    EXPECT_EQ(gmVector3(2, -3, 6).length(), 7.0);
    EXPECT_EQ(gmVector4(2, 4, 5, -6).length(), 9.0);
    gmVector3 v;
    EXPECT_EQ(v.assign(0, 3, 4).normalize(), gmVector3(0, 0.6, 0.8));
    EXPECT_EQ(gmVector2().assign(1, 2), gmVector2(1, 2));
    EXPECT_EQ(gmVector4().assign(1, 2, 3, 4), gmVector4(1, 2, 3, 4));
    static_assert(NullVector2 == gmVector2(0, 0) && NullVector3 == gmVector3(0, 0, 0) &&
                  NullVector4 == gmVector4(0, 0, 0, 0));
}

TEST(Vectors, CrossIsRightHanded) {
    constexpr gmVector3 x(1, 0, 0);
    constexpr gmVector3 y(0, 1, 0);
    constexpr gmVector3 z(0, 0, 1);
    static_assert(cross(x, y) == z && cross(y, z) == x && cross(z, x) == y && cross(y, x) == -z);
    static_assert(cross(gmVector3(1, 2, 3), gmVector3(4, 5, 7)) == gmVector3(-1, 5, -3));
}

TEST(VectorsDeathTest, EndsWithTheStandardAssertionReport) {
    EXPECT_DEATH((void)(NullVector3 / 0.0),
                 "gmVectorBase\\.h:[0-9]+: .*Assertion `!gmIsZero\\(c\\)' failed");
}

} // namespace
