#include "tests/pathReader/readText.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <numbers>
#include <utility>
#include <vector>

namespace {

std::string told(const ToolPath& path) {
    std::string text;
    for (std::size_t i = 0; i < path.movements.size(); ++i) {
        const ToolMovement& move = path.movements[i];
        const gmVector3& axis = path.axes[move.axis];
        char row[256];
        (void)std::snprintf(row, sizeof row, "%u %c%s %g %g %g | %g %g %g", move.line,
                            "RFA"[static_cast<int>(move.kind)], move.startsAnew ? "?" : "",
                            move.end[0], move.end[1], move.end[2], axis[0], axis[1], axis[2]);
        text += row;
        if (move.IsArc()) {
            const ToolArc& arc = path.arcs[move.arc];
            (void)std::snprintf(row, sizeof row, " | c %g %g %g n %g %g %g r %g a %.4g",
                                arc.centre[0], arc.centre[1], arc.centre[2], arc.normal[0],
                                arc.normal[1], arc.normal[2], arc.radius,
                                arc.angle * 180.0 / std::numbers::pi);
            text += row;
        }
        text += '\n';
    }
    return text;
}

const std::string kToStart = "TLAXIS/0,0,1\nGOTO/10,0,0\n";

} // namespace

TEST(AptReader, TellsMovementsWithTheirLines) {
    EXPECT_EQ(told(pathOf("\xEF\xBB\xBFGOTO/1,2,3\r\nGOTO/4,5,6\r\n")),
              "1 F? 1 2 3 | 0 0 1\n2 F 4 5 6 | 0 0 1\n");
    EXPECT_EQ(pathOf("\xEF\xBB\xBF").lines, 1U);
    EXPECT_EQ(told(pathOf("UNITS/INCHES\nTLAXIS/  0.00000,    0.00000,    1.00000\nRAPID\n"
                          "GOTO/   1.00000,   -2.00000,    0.00000\n$$ GOTO/1,1,1\n\n"
                          "GOTO/   1.00000,$ a remark\r\n -2, 0.5\n")),
              "4 R? 25.4 -50.8 0 | 0 0 1\n7 F 25.4 -50.8 12.7 | 0 0 1\n");
    EXPECT_EQ(told(pathOf("MULTAX/ON\nGOTO/1,2,3,0,0.6,0.8\nGOHOME\nRAPID\nGOTO/1,2,3,0,0.6,0.8\n"
                          "GOTO/1,2,4,0,3,4\nGOTO/1,2,5,-1,0,0\n")),
              "2 F? 1 2 3 | 0 0.6 0.8\n5 R? 1 2 3 | 0 0.6 0.8\n6 F 1 2 4 | 0 0.6 0.8\n"
              "7 F 1 2 5 | -1 0 0\n");
}

// The direction tells the side, also where the line through the end meets the circle before.
TEST(AptReader, TellsTheSweepOfArcs) {
    const Point centre{0, 0, 0};
    const std::vector<std::pair<std::string, const char*>> rows = {
        {arcTo({0, 1, 0}, centre, 10, {0, 10, 0}), "0 10 0 | 0 0 1 | c 0 0 0 n 0 0 1 r 10 a 90"},
        {arcTo({0, -1, 0}, centre, 10, {0, 10, 0}),
         "0 10 0 | 0 0 1 | c 0 0 0 n -0 -0 -1 r 10 a 270"},
        {arcTo({0, -1, 0}, centre, 10, {10, 0, 0}),
         "10 0 0 | 0 0 1 | c 0 0 0 n -0 -0 -1 r 10 a 360"},
        // Ends of a circle that are off by the last digit.
        {arcTo({0, 1, 0}, centre, 10, {10, -1e-5, 0}),
         "10 -1e-05 0 | 0 0 1 | c 0 0 0 n 0 0 1 r 10 a 5.73e-05"},
        // It leaves its plane.
        {arcTo({0, 1, 0}, centre, 14.14214, {0, 10, 10}),
         "0 10 10 | 0 0 1 | c 0 0 0 n 0 0 1 r 14.1421 a 90"},
    };
    for (const auto& [apt, expected] : rows) {
        EXPECT_EQ(told(pathOf(kToStart + apt)),
                  std::string("2 F? 10 0 0 | 0 0 1\n5 A ") + expected + "\n");
    }
    const ToolPath lathe = pathOf("GOTO/13,0,0\n" + arcTo({1, 0, 0}, {13, 0, -5}, 5, {18, 0, -5}));
    EXPECT_EQ(told(lathe), "1 F? 13 0 0 | 0 0 1\n"
                           "4 A 18 0 -5 | 0 0 1 | c 13 0 -5 n 0 1 0 r 5 a 90\n");
    const gmVector3 middle = lathe.PointAt(1, 0.5);
    EXPECT_NEAR(middle[0], 13 + 5 * std::sqrt(0.5), 1e-12);
    EXPECT_NEAR(middle[2], -5 + 5 * std::sqrt(0.5), 1e-12);
}

TEST(AptReader, TellsWhatHoldsWhileTheToolMoves) {
    const ToolPath path =
        pathOf("PARTNO A/B\nFEDRAT/  10.000000,IPM\nLOADTL/7\nSPINDL/  200.0000,SFM,CCLW\n"
               "SPINDL/MAXRPM,3000.0000\nCOOLNT/MIST\nCUTCOM/LEFT,3\nGOTO/0,0,0\nDELAY/2.5000\n"
               "FEDRAT/    0.1000,MMPR\nSPINDL/OFF\nCOOLNT/OFF\nCUTCOM/OFF\nDELAY/3,REV\n"
               "GOTO/0,0,1\nOPSTOP\nREWIND/0\nEND\n");
    const ToolState& first = path.StateOf(path.movements[0]);
    EXPECT_DOUBLE_EQ(first.feed, 254.0);
    EXPECT_DOUBLE_EQ(first.speed, 60.96);
    EXPECT_TRUE(first.isCuttingSpeed && !first.isFeedPerTurn);
    EXPECT_EQ(first.spindle, SpindleState::kCounterclockwise);
    EXPECT_DOUBLE_EQ(first.TurnsPerMinute(1000.0), 60960.0 / (2000.0 * std::numbers::pi));
    EXPECT_EQ(first.TurnsPerMinute(0.0), 3000.0);
    EXPECT_EQ(first.tool, 7);
    EXPECT_EQ(first.coolant, CoolantState::kMist);
    EXPECT_EQ(first.side, CompensationSide::kLeft);
    EXPECT_EQ(first.compensation, 3);
    ToolState second = first;
    second.feed = 0.1;
    second.isFeedPerTurn = true;
    second.spindle = SpindleState::kOff;
    second.coolant = CoolantState::kOff;
    second.side = CompensationSide::kOff;
    second.compensation.reset();
    EXPECT_TRUE(path.StateOf(path.movements[1]) == second);

    std::string events;
    for (const PathEvent& event : path.events) {
        char row[64];
        (void)std::snprintf(row, sizeof row, "%d %g %u %u; ", static_cast<int>(event.kind),
                            event.value, event.line, event.movement);
        events += row;
    }
    EXPECT_EQ(events, "0 7 3 0; 1 2.5 9 1; 2 3 14 1; 4 0 16 2; 6 0 18 2; ");
}

TEST(AptReader, CountsWhatItDoesNotKnow) {
    const ToolPath path =
        pathOf("MACHIN/MILL,1\nGOTO/0,0,0\nFEDRAT/MMPM,100\nMACHIN/X\nCOOLNT/AIR\n"
               "TLON,GOFWD/C1\nMACHIN,3\nDELAY/-2\nGOTO/1,0,0");
    std::string rows;
    for (const auto& row : path.unknown.Rows()) {
        rows += row.name + " " + std::to_string(row.line) + " " + std::to_string(row.count) + "; ";
    }
    EXPECT_EQ(rows, "MACHIN 1 3; FEDRAT 3 1; COOLNT 5 1; TLON 6 1; DELAY 8 1; ");
    EXPECT_TRUE(path.events.empty());
    EXPECT_EQ(path.movements.size(), 2U);
    EXPECT_TRUE(path.endsWithinLine);
    std::string strange;
    for (int i = 0; i < 100; ++i) {
        strange += "X" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(pathOf(strange).unknown.Rows().size() + pathOf(strange).unknown.Others(), 100U);
}

TEST(AptReader, SaysWhereAndWhyItCannotRead) {
    const std::string arc = arcTo({0, 1, 0}, {0, 0, 0}, 10, {0, 10, 0});
    const auto with = [&](const char* from, const char* to) {
        std::string text = arc;
        text.replace(text.find(from), std::string_view(from).size(), to);
        return kToStart + text;
    };
    const std::vector<std::pair<std::string, const char*>> rows = {
        {"GOTO/1,2\n", "1: GOTO takes three numbers, or six with the tool axis"},
        {"\nGOTO/1,nan,2\n", "2: GOTO: a number is none (NaN)"},
        {"GOTO/1,inf,2\n", "1: GOTO: a number is larger than any machine"},
        {"GOTO/1,1e400,2\n", "1: GOTO: a number is larger than any machine"},
        {"FEDRAT/1e11,IPM\n", "1: FEDRAT: a number is larger than any machine"},
        {"GOTO/1,2e,2\n", "1: GOTO: a number is followed by something else"},
        {"GOTO/P1\n", "1: GOTO: a number is missing"},
        {"GOTO/1,2,3,0,0,0\n", "1: a tool axis without a direction"},
        {"FEDRAT/nan,MMPM\n", "1: FEDRAT: a number is none (NaN)"},
        {"UNITS/CM\n", "1: UNITS takes MM or INCHES"},
        {"GOTO/1,2,3\nUNITS/INCHES\n", "2: the unit changes behind the first movement"},
        {"GOTO/1,2,3\nRAPID\n",
         "2: the file ends in front of the movement that its last statement announces"},
        {kToStart + arc.substr(0, arc.find("TLON")),
         "4: the file ends in front of the movement that its last statement announces"},
        {kToStart + arc.substr(0, arc.size() - 44), "6: the file ends within a statement"},
        {kToStart + arc.substr(0, arc.size() - 2),
         "5: TLON is not in the form (CIRCLE/x,y,z,r),ON,(LINE/x,y,z,x,y,z)"},
        {with("INDIRV/    0.00000,    1.00000", "INDIRV/    1.00000,    0.00000"),
         "5: the direction of an arc is not along its circle"},
        {with("10.00000),ON", "10.00050),ON"), "5: the radius of an arc is not that of its end"},
        {kToStart + arcTo({0, 1, 0}, {0, 0, 0}, 0, {0, 0, 0}), "5: an arc that ends at its centre"},
        {with("AUTOPS", "GOHOME"), "5: an arc from a place that nobody tells"},
        {kToStart + arc.substr(arc.find("TLON")), "3: an arc without its direction, INDIRV"},
        {kToStart + std::string(70000, 'A') + "\n", "3: the line is longer than any statement"},
    };
    for (const auto& [apt, error] : rows) {
        EXPECT_EQ(errorOf(apt), error) << apt.substr(0, 300);
    }
}

TEST(BlockTable, TiesMovementsToBlocks) {
    const std::string apt = "TLAXIS/0,0,1\nRAPID\nGOTO/1,0,0\nGOTO/2,0,0\nGOTO/3,0,0\nEND\n";
    const std::string log = std::string(kLogHead) +
                            "\n%\n\nG0 X1\nTLAXIS/0,0,1\nRAPID\nGOTO/1,0,0\n\n\n\nN5 G1 X#1\n"
                            "= G1 X2\nGOTO/2,0,0\nGOTO/3,0,0\n\nM30\nEND\n\nG4\n";
    ToolPath path = pathOf(apt);
    EXPECT_EQ(path.BlockOf(path.movements[0]), BlockTable::kNone);
    ASSERT_EQ(addBlocks(path, log, apt), "");
    std::string found;
    for (const ToolMovement& movement : path.movements) {
        const std::uint32_t block = path.BlockOf(movement);
        found += std::to_string(block) + " " + std::string(path.blocks.Text(block)) + "; ";
    }
    EXPECT_EQ(found, "1 G0 X1; 3 N5 G1 X#1; 3 N5 G1 X#1; ");
    EXPECT_EQ(path.blocks.Text(path.blocks.At(6)), "M30");
    EXPECT_EQ(path.blocks.Count(), 6U);
    EXPECT_EQ(addBlocks(path, log, apt + "GOTO/4,0,0\n"),
              "it is not the log of this APT: line 7 of the APT is not in it");
    EXPECT_EQ(addBlocks(path, log, apt.substr(0, apt.find("GOTO/3"))),
              "it goes on behind the end of this APT, which may have been cut off");
    EXPECT_EQ(addBlocks(path, "", apt), "it is no log: its banner is missing");
}
