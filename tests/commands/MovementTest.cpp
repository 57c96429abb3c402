#include "commands/ArcRequest.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

std::string rapidTo(double x, double y, double z) { return "RAPID\n" + goTo(x, y, z); }

// A mill whose blocks may carry "=AC(" and "=IC(": its comments begin with a semicolon.
std::string markedMill(Entries entries = {}) {
    return mill({{"COMMENT_START", ";"}}) + dialectOf(entries);
}

const Point kOrigin = {0, 0, 0};

TEST(LinearMovement, IsModalAndKeepsOmittedCoordinates) {
    expectAPT(mill(),
              {{"X1\nG1 Y2\nZ3\nG0\nG01", rapidTo(1, 0, 0) + goTo(1, 2, 0) + goTo(1, 2, 3) +
                                              rapidTo(1, 2, 3) + goTo(1, 2, 3)},
               {"M8\nG1 X1\n\nQ5\n(X2)\nG4 X3", "COOLNT/ON\n" + goTo(1, 0, 0) + goTo(3, 0, 0)},
               {"G1 X1 X2\nY1", goTo(1, 0, 0) + goTo(1, 1, 0)}, // one word of a kind on a block
               // Of two movements the one tried last is active, and it finds the coordinate taken.
               {"G0 G1 X5\nX6", rapidTo(0, 0, 0) + rapidTo(6, 0, 0)}});
}

TEST(LinearMovement, AddsIncrementalValuesToTheLastPosition) {
    const std::string on = "MODE/INCR,ON\n";
    const std::string off = "MODE/INCR,OFF\n";
    expectAPT(markedMill(),
              {{"G1 X10\nG91 X5\nX=AC(5)\nX5",
                goTo(10, 0, 0) + on + goTo(15, 0, 0) + goTo(5, 0, 0) + goTo(10, 0, 0)},
               {"G1 X10 Y1\nX=IC(-2.5)\nX=IC(-2.5) Y=IC(1)\nX7",
                goTo(10, 1, 0) + goTo(7.5, 1, 0) + goTo(5, 2, 0) + goTo(7, 2, 0)},
               {"G1 X10\nU5 V-1 W.5\nU5", goTo(10, 0, 0) + goTo(15, -1, 0.5) + goTo(20, -1, 0.5)},
               {"G1 U5 X10", goTo(10, 0, 0)},          // the absolute word comes last and wins
               {"G1 G91 U5 X10", on + goTo(15, 0, 0)}, // or adds, in incremental mode
               {"G1 G91 U=AC(5) X10", on + goTo(15, 0, 0)},
               {"G91\nG1 X1\nG90\nX1 Y1", on + goTo(1, 0, 0) + off + goTo(1, 1, 0)}});
}

TEST(AxisMapping, DividesAndAssignsTheAxes) {
    // The assignments of the axes, and the point that X1 Y2 Z4 gives. The first byte is always the
    // sign's place; all assignments read the values given, and y falls through to z, where the
    // later one wins.
    const std::pair<std::array<const char*, 3>, std::string> rows[] = {
        {{"-2,5", "2", "--0.5"}, goTo(-0.5, 2, 8)}, {{"22", "-4", "x"}, goTo(0.5, -0.5, 4)},
        {{"-", "-0", "-none"}, goTo(-1, -2, -4)},   {{"-2*Z", "", ""}, goTo(-2, 2, 4)},
        {{"+2*z*y", "", ""}, goTo(2, 2, 4)},        {{"+1*Y", "", ""}, goTo(4, 2, 4)},
        {{"", "+1*X", "+1*Y"}, goTo(1, 4, 2)},      {{"", "+1*Z", "+1*X"}, goTo(1, 4, 2)},
        {{"+1*Z", "-1*X", "+2*Y"}, goTo(4, -4, 1)}, {{"*Z", "+*Z", "+1*Q"}, goTo(1, 4, 4)}};
    for (const auto& [axes, expected] : rows) {
        expectAPT(mill({{"ZX_LATHE_X_ASSIGNMENT", axes[0]},
                        {"ZX_LATHE_Y_ASSIGNMENT", axes[1]},
                        {"ZX_LATHE_Z_ASSIGNMENT", axes[2]}}),
                  {{"G1 X1 Y2 Z4", expected}});
    }
    // An assignment is never taken back, a factor is.
    expectAPT(mill({{"ZX_LATHE_X_ASSIGNMENT", "-2*Z"}, {"ZX_LATHE_X_ASSIGNMENT", "+1"}}),
              {{"G1 X1 Y2 Z4", goTo(4, 2, 4)}});
    // Positions are held behind the assignments and before the factors.
    expectAPT(mill({{"ZX_LATHE_Y_ASSIGNMENT", "+2*Z"}, {"ZX_LATHE_Z_ASSIGNMENT", "+1*Y"}}),
              {{"G1 Y10\nV10\nX1", goTo(0, 0, 10) + goTo(0, 5, 10) + goTo(1, 5, 10)}});
}

TEST(ToolAxis, IsWrittenOnceBeforeTheFirstMovement) {
    const auto axis = [](double x, double y, double z) {
        return "TLAXIS" + goTo(x, y, z).substr(4);
    };
    const std::pair<const char*, std::string> rows[] = {
        {"-0.6;0;0.8;4", axis(-0.6, 0, 0.8)}, {"1", axis(1, 0, 1)},
        {"0.5;1;", axis(0.5, 1, 1)},          {";2", axis(0, 2, 1)},
        {"0,7;1;0", axis(0, 1, 0)},           {"", axis(0, 0, 1)}};
    for (const auto& [text, statement] : rows) {
        expectAPT(mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}, {"MFG_INIT_SPINDLE", text}}),
                  {{"M8\nG1 X1\nX2", "COOLNT/ON\n" + statement + goTo(1, 0, 0) + goTo(2, 0, 0)}});
    }
    expectAPT(mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"}}),
              {{"G2 X10 I5", axis(0, 0, 1) + arcTo({0, 1, 0}, {5, 0, 0}, 5, {10, 0, 0})}});
}

TEST(CircularMovement, WritesArcsInBothDirections) {
    const std::string start = rapidTo(10, 0, 0);
    const Point end = {0, 10, 0};
    expectAPT(
        markedMill(),
        {{"X10\nG2 X0 Y10 I-10 J0", start + arcTo({0, -1, 0}, kOrigin, 10, end)},
         // The negated normal shows in the sign of zero.
         {"X10\nG3 X0 Y10 I=AC(0)", start + arcTo({0, 1, -0.0}, kOrigin, 10, end)},
         {"X10\nG91 G3 X-10 Y10 I-10",
          start + "MODE/INCR,ON\n" + arcTo({0, 1, -0.0}, kOrigin, 10, end)},
         {"X10\nG2 J5", start + arcTo({-1, 0, 0}, {10, 5, 0}, 5, {10, 0, 0})}, // a full circle
         {"X10\nG2 X20 I5\nX30 I5\nG1 X0", start + arcTo({0, 1, 0}, {15, 0, 0}, 5, {20, 0, 0}) +
                                               arcTo({0, 1, 0}, {25, 0, 0}, 5, {30, 0, 0}) +
                                               goTo(0, 0, 0)},
         {"X10\nG2 X3 Y4 I-10 Z-1",
          start + arcTo({0, -1, 0}, kOrigin, std::sqrt(26.0), {3, 4, -1})}});
}

TEST(CircularMovement, TakesAbsoluteCentresWhereTheDialectSaysSo) {
    const std::string arc = rapidTo(10, 0, 0) + arcTo({0, -1, 0}, kOrigin, 10, {0, 10, 0});
    EXPECT_EQ(aptOf(mill({{"CIRCLE_CENTER_ABS", "1 of them"}}), "X10\nG2 X0 Y10 I0"), arc);
    EXPECT_EQ(aptOf(markedMill({{"CIRCLE_CENTER_ABS", "1"}}), "X10\nG2 X0 Y10 I=IC(-10)"), arc);
    // Before the centre words the key has nothing to act on.
    EXPECT_EQ(aptOf(dialectOf({{"DECIMAL_POINT_REPRESENTATION", "."},
                               {"CIRCULAR_INTERPOLATION_RIGHT", "G2"},
                               {"CIRCLE_CENTER_ABS", "0"},
                               {"1ST_COORDINATE", "X\n1\n"},
                               {"1ST_CIRCLE_CENTER_COORDINATE", "I\n1\n"}}),
                    "X10\nG2 X0 I5"),
              goTo(10, 0, 0) + arcTo({0, -1, 0}, {5, 0, 0}, 5, kOrigin));
}

TEST(CircularMovement, ScalesEveryPointButNotTheNormal) {
    EXPECT_EQ(aptOf(mill({{"ZX_LATHE_X_ASSIGNMENT", "-2"}}), "X10\nG2 X0 Y10 I-10"),
              rapidTo(-5, 0, 0) + arcTo({0, 1, 0}, {-0.0, 0, 0}, 10, {-0.0, 10, 0}));
    EXPECT_EQ(aptOf(lathe({{"ZX_LATHE_X_ASSIGNMENT", "+2"}}), "X20\nG2 X0 Z10 I-20"),
              rapidTo(10, 0, 0) + arcTo({-0.0, -0.0, -1}, kOrigin, 10, {0, 0, 10}));
    // The assignment moves the end point only.
    EXPECT_EQ(aptOf(mill({{"ZX_LATHE_Y_ASSIGNMENT", "+1*Z"}, {"CIRCLE_CENTER_ABS", "2"}}),
                    "X10\nG2 X0 Z10 I-10"),
              rapidTo(10, 0, 0) + arcTo({0, -1, 0}, kOrigin, std::sqrt(200.0), {0, 10, 10}));
}

TEST(CircularMovement, DropsAnArcWithoutRadiusAndMovesOn) {
    const Conversion result = convert(mill(), "X10\nG2 X0 I-10.00000000009\nG1 Z5");
    EXPECT_EQ(result.apt, rapidTo(10, 0, 0) + goTo(0, 0, 5));
    EXPECT_EQ(result.log,
              "\nX10\n" + rapidTo(10, 0, 0) +
                  "\nG2 X0 I-10.00000000009\nCircle with radius 0 not allowed! Continuing!\n"
                  "\nG1 Z5\n" +
                  goTo(0, 0, 5));
}

// A limit itself is tried on values that a double holds exactly.
TEST(ArcTolerance, IsAShareOfTheRadiusBetweenTwoLimits) {
    EXPECT_FALSE(ArcTolerance().IsExceeded(5, 5.0282));
    EXPECT_FALSE(ArcTolerance().IsExceeded(5.0282, 5));
    EXPECT_TRUE(ArcTolerance().IsExceeded(5, 5.0284));
    EXPECT_TRUE(ArcTolerance().IsExceeded(5.0284, 5));
    EXPECT_FALSE(ArcTolerance().IsExceeded(999, 999.998));
    EXPECT_TRUE(ArcTolerance().IsExceeded(999, 1000.001));
    EXPECT_FALSE(ArcTolerance().IsExceeded(10'000, 10'002.829));
    EXPECT_TRUE(ArcTolerance().IsExceeded(10'000, 10'002.831));
    const ArcTolerance tolerance{.low = 0.25, .fraction = 0.0625, .high = 2.0};
    EXPECT_FALSE(tolerance.IsExceeded(1.0, 1.25));
    EXPECT_FALSE(tolerance.IsExceeded(16.0, 15.0));
    EXPECT_FALSE(tolerance.IsExceeded(64.0, 62.0));
}

} // namespace
