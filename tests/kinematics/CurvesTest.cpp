// Points on curves: near enough to the truth everywhere, and hardly one too many.

#include "kinematics/CurveSplitter.h"
#include "kinematics/greatArc.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// The axis turns about X by `tilt`, the tip about Z at a radius by `turn`, and runs on.
ToolCurve curveOf(double radius, double turn, double tilt, const gmVector3& way) {
    return [=](double u) {
        const double a = turn * u * kDegree;
        const double b = tilt * u * kDegree;
        return ToolPlace{gmVector3(radius * std::cos(a), radius * std::sin(a), 0.0) + way * u,
                         {0.0, -std::sin(b), std::cos(b)}};
    };
}

struct Tolerances {
    double tip;
    double axis; // degrees
};

// How far a straight way is from the truth, in parts of the tolerances.
double errorOf(const ToolCurve& curve, double begin, double end, Tolerances tolerances,
               int samples) {
    const ToolPlace from = curve(begin);
    const ToolPlace to = curve(end);
    double most = 0.0;
    for (int i = 1; i < samples; ++i) {
        const double u = static_cast<double>(i) / samples;
        const ToolPlace truth = curve(begin + (end - begin) * u);
        const gmVector3 tip = from.tip + (to.tip - from.tip) * u;
        gmVector3 axis = from.axis + (to.axis - from.axis) * u;
        const double length = axis.length();
        if (length < 1e-9) {
            return 1e9;
        }
        axis *= 1.0 / length;
        const double product = std::clamp(
            axis[0] * truth.axis[0] + axis[1] * truth.axis[1] + axis[2] * truth.axis[2], -1.0, 1.0);
        most = std::max({most, (tip - truth.tip).length() / tolerances.tip,
                         std::acos(product) / kDegree / tolerances.axis});
    }
    return most;
}

// As many as are needed: always the farthest point of a fine grid.
std::size_t fewestPoints(const ToolCurve& curve, Tolerances tolerances, int grid, int samples) {
    std::size_t points = 0;
    for (int begin = 0; begin < grid; ++points) {
        int good = begin + 1;
        for (int step = 1; begin + step <= grid; ++step) {
            const double error =
                errorOf(curve, static_cast<double>(begin) / grid,
                        static_cast<double>(begin + step) / grid, tolerances, samples);
            if (error <= 1.0) {
                good = begin + step;
            } else if (error > 3.0) {
                break;
            }
        }
        begin = good;
    }
    return points;
}

TEST(Curves, AreLeftByNoMoreThanTheTolerance) {
    std::mt19937 random(7);
    const auto number = [&](double most) {
        return std::uniform_real_distribution(-most, most)(random);
    };
    for (int i = 0; i < 300; ++i) {
        const double size = i % 3 == 0 ? 720.0 : 60.0;
        const ToolCurve curve =
            curveOf(std::abs(number(200.0)), number(size), i % 2 == 0 ? 0.0 : number(size),
                    {number(100), number(100), number(100)});
        const Tolerances tolerances = {i % 5 == 0 ? 1.0 : 0.05, i % 7 == 0 ? 0.2 : 2.0};
        const auto fractions =
            CurveSplitter(curve, tolerances.tip, tolerances.axis, 2 * size).Split();
        ASSERT_FALSE(fractions.empty());
        EXPECT_EQ(fractions.back(), 1.0);
        double begin = 0.0;
        for (const double end : fractions) {
            EXPECT_LE(errorOf(curve, begin, end, tolerances, 100), 1.0);
            begin = end;
        }
        if (fractions.size() < 40) {
            EXPECT_LE(fractions.size(), 2 * fewestPoints(curve, tolerances, 400, 24)) << i;
        }
    }
}

TEST(Curves, AreNotMistakenForStraightOnesByTheirEnds) {
    struct Row {
        const char* name;
        ToolCurve curve;
        double turning;
        std::size_t least;
        std::size_t most;
    };
    const gmVector3 up(0.0, 0.0, 1.0);
    const Row rows[] = {
        {"a full turn of the tip", curveOf(10, 360, 0, {}), 360.0, 51, 102},
        {"seventeen turns", curveOf(10, 17 * 360, 0, {}), 17 * 360.0, 860, 1720},
        {"a full turn of the axis", curveOf(0, 0, 360, {}), 360.0, 6, 12},
        {"turns where nothing shows them", curveOf(0, 3600, 0, {}), 3600.0, 1, 1},
        {"opposite axes",
         [up](double u) {
             return ToolPlace{{}, greatArc(up, up * -1.0, u)};
         },
         180.0, 3, 6},
    };
    for (const Row& row : rows) {
        const auto fractions = CurveSplitter(row.curve, 0.02, 1.0, row.turning).Split();
        EXPECT_GE(fractions.size(), row.least) << row.name;
        EXPECT_LE(fractions.size(), row.most) << row.name;
    }
}

TEST(Curves, EndWhereTheyWouldNot) {
    const ToolCurve curve = curveOf(1e6, 1e6, 0, {});
    EXPECT_TRUE(CurveSplitter(curve, 1e-6, 1.0, 1e6).Split().empty());
    EXPECT_TRUE(CurveSplitter(curve, 1.0, 1.0, 1e12).Split().empty());
    EXPECT_TRUE(CurveSplitter(curve, 1e-300, 1.0, 360.0).Split().empty());
    EXPECT_TRUE(CurveSplitter(curveOf(10, 360, 0, {}), 0.02, 1.0, 360.0).Split(50).empty());
}

TEST(Curves, FollowTheGreatArc) {
    const gmVector3 x(1.0, 0.0, 0.0);
    const gmVector3 z(0.0, 0.0, 1.0);
    const gmVector3 third = greatArc(z, x, 1.0 / 3.0);
    EXPECT_NEAR(third[0], 0.5, 1e-12);
    EXPECT_NEAR(third[2], std::sqrt(0.75), 1e-12);
    const gmVector3 half = greatArc(z, z * -1.0, 0.5);
    EXPECT_NEAR(half.length(), 1.0, 1e-12);
    EXPECT_NEAR(half[2], 0.0, 1e-12);
}

} // namespace
