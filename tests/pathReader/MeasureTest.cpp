#include "path/PathDifference.h"
#include "path/PathMeasure.h"
#include "path/PathTree.h"
#include "tests/pathReader/readText.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>
#include <string>

// Two tools, each with what it alone does; all figures by hand.
TEST(PathMeasure, MeasuresByHand) {
    const ToolPath path = pathOf(
        "LOADTL/1\nSPINDL/1000,RPM,CLW\nTLAXIS/0,0,1\nRAPID\nGOTO/0,0,10\nRAPID\nGOTO/10,0,10\n"
        "FEDRAT/300,MMPM\nGOTO/10,0,-2\n" +
        // From (10, 0) over (0, 10), (-10, 0): three quarters of a circle.
        arcTo({0, 1, 0}, {0, 0, -2}, 10, {0, -10, -2}) +
        "DELAY/4\nDELAY/50,REV\nRAPID\nGOTO/0,-10,0\nRAPID\nGOTO/0,-20,0\nLOADTL/2\n"
        "FEDRAT/0.5,MMPR\nGOTO/0,-20,-8\nSPINDL/OFF\nGOTO/0,-20,20\nDELAY/1,REV\nLOADTL/1\n"
        "FEDRAT/600,MMPM\nGOTO/30,-20,20\n");
    const PathMeasure measure = measurePath(path, 6000.0);
    const double arc = 15.0 * std::numbers::pi;

    EXPECT_EQ(measure.box.low, gmVector3(-10, -20, -8));
    EXPECT_EQ(measure.box.high, gmVector3(30, 10, 20));
    EXPECT_EQ(measure.cuttingBox.low, gmVector3(-10, -20, -8));
    EXPECT_EQ(measure.rapid.count, 4U);
    EXPECT_DOUBLE_EQ(measure.rapid.length, 10 + 2 + 10);
    EXPECT_DOUBLE_EQ(measure.rapid.seconds, 0.22);
    EXPECT_EQ(measure.feed.count, 4U);
    EXPECT_DOUBLE_EQ(measure.feed.length, 12 + 8 + 28 + 30);
    EXPECT_DOUBLE_EQ(measure.feed.seconds, 12 / 5.0 + 8 / (0.5 * 1000 / 60) + 30 / 10.0);
    EXPECT_EQ(measure.feed.untimed, 1U);
    EXPECT_EQ(measure.arcs.count, 1U);
    EXPECT_DOUBLE_EQ(measure.arcs.length, arc);
    EXPECT_DOUBLE_EQ(measure.dwellSeconds, 4 + 3);
    EXPECT_EQ(measure.untimedDwells, 1U);
    EXPECT_EQ(measure.toolChanges, 3U);
    EXPECT_EQ(measure.feedPerMinute.low, 300);
    EXPECT_EQ(measure.feedPerMinute.high, 600);
    EXPECT_EQ(measure.feedPerTurn.high, 0.5);
    EXPECT_EQ(measure.speed.high, 1000);
    EXPECT_TRUE(measure.cuttingSpeed.isEmpty);

    ASSERT_EQ(measure.tools.size(), 2U);
    EXPECT_EQ(measure.tools[0].tool, 1);
    EXPECT_DOUBLE_EQ(measure.tools[0].cutting.length, 12 + arc + 30);
    EXPECT_EQ(measure.tools[0].cuttingZ.low, -2);
    EXPECT_EQ(measure.tools[1].z.low, -8);
    EXPECT_EQ(measure.tools[1].rapid.count, 0U);
    // The way out of the hole goes straight up; the next one across, below 20.
    EXPECT_EQ(measure.rapidsBelow, 4U);
    EXPECT_EQ(measure.rapidsBelowAcross, 2U);
    EXPECT_EQ(measure.firstBelowAcross, 7U);
}

// At the axis a cutting speed without a limit would be any number of turns.
TEST(PathMeasure, DoesNotTimeWhatTurnsWithoutBounds) {
    const std::string drilling =
        "SPINDL/100,SMM,CLW\nFEDRAT/0.1,MMPR\nGOTO/0,0,0\nDELAY/10,REV\nGOTO/0,0,-5\n";
    const PathMeasure bare = measurePath(pathOf(drilling), 0.0);
    EXPECT_EQ(bare.feed.untimed, 2U);
    EXPECT_EQ(bare.untimedDwells, 1U);
    const PathMeasure limited = measurePath(pathOf("SPINDL/MAXRPM,500\n" + drilling), 0.0);
    EXPECT_DOUBLE_EQ(limited.feed.seconds, 5 / (0.1 * 500) * 60);
    EXPECT_DOUBLE_EQ(limited.dwellSeconds, 10 / 500.0 * 60);
}

TEST(PathMeasure, MeasuresWaysThatBeginElsewhere) {
    // Nobody knows where the first way began, nor that behind GOHOME, so they have no time.
    const PathMeasure home =
        measurePath(pathOf("FEDRAT/60,MMPM\nGOTO/0,0,0\nGOTO/10,0,0\nGOHOME\nGOTO/10,20,0\n"), 0.0);
    EXPECT_EQ(home.feed.untimed, 2U);
    // 40 m/min on a radius that grows from 10 to 30: the turns are those at 20.
    const PathMeasure facing =
        measurePath(pathOf("GOTO/10,0,0\nSPINDL/40,SMM,CLW\nFEDRAT/0.5,MMPR\nGOTO/30,0,0\n"), 0.0);
    EXPECT_NEAR(facing.feed.seconds, 20 / (0.5 * 40000 / (2 * std::numbers::pi * 20)) * 60, 1e-9);
    // One rapid way that begins below the cut and ends above it.
    const PathMeasure below =
        measurePath(pathOf("GOTO/0,0,0\nGOTO/0,0,5\nRAPID\nGOTO/0,0,2\nRAPID\nGOTO/9,0,8\n"), 0.0);
    EXPECT_EQ(below.rapidsBelow, 2U);
    EXPECT_EQ(below.rapidsBelowAcross, 1U);
}

TEST(PathMeasure, HoldsArcsThatLeaveTheBoxOfTheirEnds) {
    const ToolPath path =
        pathOf("TLAXIS/0,0,1\nGOTO/8,6,0\n" + arcTo({-0.6, 0.8, 0}, {0, 0, 0}, 10, {8, -6, 0}));
    const PathBox box = measurePath(path, 0.0).box;
    EXPECT_EQ(box.low, gmVector3(-10, -10, 0));
    EXPECT_EQ(box.high, gmVector3(8, 10, 0));
    EXPECT_TRUE(measurePath(ToolPath(), 0.0).box.isEmpty);
}

// Against the points of all movements, close enough to each other.
TEST(PathTree, FindsTheNearestMovement) {
    std::mt19937 random(7);
    const auto below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    std::string apt = "TLAXIS/0,0,1\nGOTO/0,0,0\n";
    for (int i = 0, x = 0, y = 0; i < 60; ++i) {
        if (below(3) == 0) { // half or three quarters of a circle about a point to the right
            const double radius = 1 + below(9);
            const bool isHalf = below(2) == 0;
            const Point centre{x + radius, static_cast<double>(y), 0};
            x += static_cast<int>(isHalf ? 2 * radius : radius);
            y += static_cast<int>(isHalf ? 0 : radius);
            apt += arcTo({0, -1, 0}, centre, radius,
                         {static_cast<double>(x), static_cast<double>(y), 0});
        } else {
            x = below(60) - 30;
            y = below(60) - 30;
            apt += goTo(x, y, 0);
        }
    }
    const ToolPath path = pathOf(apt);
    ASSERT_GT(path.arcs.size(), 5U);
    const std::size_t first = 3;
    const PathTree tree(path, first, path.movements.size());
    for (int i = 0; i < 300; ++i) {
        const gmVector3 point(below(80) - 40, below(80) - 40, below(9) - 4);
        double nearest = HUGE_VAL;
        for (std::size_t k = first; k < path.movements.size(); ++k) {
            for (int part = 0; part <= 2000; ++part) {
                nearest = std::min(nearest, (path.PointAt(k, part / 2000.0) - point).length());
            }
        }
        EXPECT_NEAR(tree.Distance(point, 0.0), nearest, 0.03) << point[0] << " " << point[1];
    }
}

TEST(PathDifference, TakesAWayInOtherPiecesForTheSame) {
    const Point centre{0, 0, 0};
    const std::string start = "TLAXIS/0,0,1\nGOTO/10,0,0\n";
    const double part = 10 * std::sqrt(0.5);
    const ToolPath whole = pathOf(start + arcTo({0, 1, 0}, centre, 10, {0, 10, 0}));
    const ToolPath pieces =
        pathOf(start + arcTo({0, 1, 0}, centre, 10, {part, part, 0}) +
               arcTo({-std::sqrt(0.5), std::sqrt(0.5), 0}, centre, 10, {0, 10, 0}));
    const PathDifference same = comparePaths(whole, pieces);
    EXPECT_STREQ(same.what, "end");
    EXPECT_EQ(same.movement, 1U);
    EXPECT_EQ(same.distance, 0.0);
    // A chord lies off the arc by its height.
    const PathDifference chord = comparePaths(whole, pathOf(start + "GOTO/0,10,0\n"));
    EXPECT_STREQ(chord.what, "kind of movement");
    EXPECT_NEAR(chord.distance, 10 - part, 1e-3);
    EXPECT_FALSE(chord.isOfSecond);
}

// One path has a gap; its middle lies between the places of the other that are looked at first.
TEST(PathDifference, FindsTheFarthestPointBetweenSamples) {
    const ToolPath whole = pathOf("GOTO/0,0,0\nGOTO/100,0,0\n");
    const ToolPath parted = pathOf("GOTO/0,0,0\nGOTO/35,0,0\nGOHOME\nGOTO/51,0,0\nGOTO/100,0,0\n");
    for (const bool isTurned : {false, true}) {
        const PathDifference found =
            isTurned ? comparePaths(parted, whole) : comparePaths(whole, parted);
        EXPECT_NEAR(found.distance, 8.0, 1e-6);
        EXPECT_NEAR(found.point[0], 43.0, 1e-6);
        EXPECT_EQ(found.isOfSecond, isTurned);
        EXPECT_EQ(found.farthest, 1U);
    }
}

TEST(PathDifference, TellsWhatElseDiffers) {
    const std::string start = "TLAXIS/0,0,1\nFEDRAT/100,MMPM\nGOTO/10,0,0\n";
    const std::string arc = arcTo({0, 1, 0}, {0, 0, 0}, 10, {10, 1e-3, 0});
    const std::string turn = arcTo({0, -1, 0}, {0, 0, 0}, 10, {10, 1e-3, 0});
    const struct {
        std::string one;
        std::string other;
        const char* what;
    } rows[] = {
        {"CUTCOM/LEFT,1\nGOTO/0,0,0\n", "CUTCOM/LEFT,2\nGOTO/0,0,0\n", "radius compensation"},
        {"CUTCOM/LEFT,1\nGOTO/0,0,0\n", "CUTCOM/LEFT\nGOTO/0,0,0\n", "radius compensation"},
        {"RAPID\nGOTO/0,0,0\n", "FEDRAT/200,MMPM\nRAPID\nGOTO/0,0,0\n", nullptr},
        {arc, turn, "arc"},
    };
    for (const auto& [one, other, what] : rows) {
        EXPECT_STREQ(comparePaths(pathOf(start + one), pathOf(start + other)).what, what)
            << one << other;
    }
}
