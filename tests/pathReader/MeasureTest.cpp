#include "path/PathMeasure.h"
#include "tests/pathReader/readText.h"
#include "tests/support/convert.h"

#include <gtest/gtest.h>
#include <numbers>

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

TEST(PathMeasure, HoldsArcsThatLeaveTheBoxOfTheirEnds) {
    const ToolPath path =
        pathOf("TLAXIS/0,0,1\nGOTO/8,6,0\n" + arcTo({-0.6, 0.8, 0}, {0, 0, 0}, 10, {8, -6, 0}));
    const PathBox box = measurePath(path, 0.0).box;
    EXPECT_EQ(box.low, gmVector3(-10, -10, 0));
    EXPECT_EQ(box.high, gmVector3(8, 10, 0));
    EXPECT_TRUE(measurePath(ToolPath(), 0.0).box.isEmpty);
}
