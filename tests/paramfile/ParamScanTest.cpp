#include "paramfile/ParamScan.h"

#include "driver/Controller.h"
#include "paramfile/keys.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace std::string_literals;

namespace {

// Whether a key of the parameter file is this line, behind which a longer one has left its bytes.
bool isKey(std::string line, bool isLathe) {
    line.append(1, '\0').append(250, 'F');
    const auto matches = [&](const auto& key) { return key.Matches(line.c_str(), isLathe); };
    return std::ranges::any_of(commandKeys(), matches) ||
           std::ranges::any_of(parameterKeys(), matches);
}

TEST(ParamScan, TellsTheKeysOfMillsAndLathesApart) {
    // A stray byte behind an exact key does no harm, and a lathe counts the suffix by its length.
    // The keys that are not exact match whatever begins with them, on any machine.
    const std::pair<std::string, std::vector<const char*>> rows[] = {
        {"mill ",
         {"RAPID", "RAPIDX", "RAPID_", "RAPIDX Y", "LINEAR_INTERPOLATION",
          "CIRCULAR_INTERPOLATION_RIGHT", "1ST_COORDINATE", "2ND_COORDINATE_INCR"}},
        {"lathe",
         {"RAPID_LATHE", "RAPID_LATHEX", "RAPID_MILLS", "1ST_COORDINATE_LATHE",
          "LINEAR_INTERPOLATION_LATHE", "CIRCULAR_INTERPOLATION_RIGHT_LATHE",
          "3RD_COORDINATE_INCR_LATHE"}},
        {"mill lathe",
         {"CIRCULAR_INTERPOLATION_LEFT", "CIRCULAR_INTERPOLATION_LEFT_LATHE", "SPINDLE_OFF_LATHE",
          "SPINDLE_CLOCKWISE_2ND", "FEEDRATE_LATHE", "PROGRAM_END_LATHE",
          "3RD_CIRCLE_CENTER_COORDINATE_LATHE"}},
        {"",
         {"RAPID X", "RAPID_2ND", "RAPID_LATH", "RAPID_LATHE_2ND", "xRAPID", "rapid",
          "LINEAR_INTERPOLATION_2ND_LATHE", "1ST_COORDINATE_INCR_2ND", "SPINDLE_OFF", "FEEDRAT"}},
    };
    for (const auto& [machines, keys] : rows) {
        for (const char* const key : keys) {
            const std::string found = isKey(key, false) ? "mill " : "";
            EXPECT_EQ(found + (isKey(key, true) ? "lathe" : ""), machines) << key;
        }
    }
}

TEST(ParamScan, TakesAWholeKeyForNoOther) {
    const Key dwell = {"REV_DWELL", KeyKind::kWhole, Key::Form::kText, nullptr};
    for (const bool isLathe : {false, true}) {
        EXPECT_TRUE(dwell.Matches("REV_DWELL", isLathe));
        for (const char* const other :
             {"REV_DWELL_TURNS", "REV_DWELL_LATHE", "REV_DWELL ", "REV_DWEL", "xREV_DWELL"}) {
            EXPECT_FALSE(dwell.Matches(other, isLathe)) << other;
        }
    }
}

TEST(ParamScan, LeavesTheValueLineOfARefusedKeyAlone) {
    EXPECT_EQ(aptOf(mill({{"RAPID_2ND", "COOLANT_ON\nM7"}}), "M7"), "COOLNT/ON\n");
    // An accepted key takes its value line whatever it holds.
    EXPECT_EQ(aptOf(mill({{"COOLANT_OFF", "COOLANT_ON\nM7"}}), "M7"), "");
}

TEST(ParamScan, LetsTheLastEntryWinAndEmptyValuesChangeNothing) {
    const std::string dialect =
        mill({{"COOLANT_ON", "M7"}, {"COOLANT_ON", "   "}, {"COMMENT_END", ""}});
    EXPECT_EQ(aptOf(dialect, "M7 (M9)"), "COOLNT/ON\n");
    EXPECT_EQ(aptOf(dialect, "M8"), "");
    // The class counts for the keys behind it: here G10 is no rapid traverse.
    EXPECT_EQ(
        aptOf(mill({{"MFG_CLASS_NAME", "MY_LATHE_MACHINE_2"}, {"RAPID", "G10"}}), "G1\nG10 X2"),
        goTo(0, 0, 0) + goTo(2, 0, 0));
    // A later class that is no lathe's asks for the tool axis, and the machine stays a lathe.
    EXPECT_EQ(aptOf(lathe({{"MFG_CLASS_NAME", "MILL"}, {"RAPID_LATHE", "G10"}}), "G10 X2"),
              "TLAXIS/    0.00000,    0.00000,    1.00000\nRAPID\n" + goTo(2, 0, 0));
}

TEST(ParamScan, TakesCentresForAbsoluteOnlyWhereTheValueBeginsWithOne) {
    for (const auto& [mode, centre] : {std::pair{"1 yes", 5.0}, {"2", 15.0}, {"0", 15.0}}) {
        EXPECT_EQ(aptOf(mill({{"CIRCLE_CENTER_ABS", mode}}), "G1 X10\nG2 X20 I5"),
                  goTo(10, 0, 0) + arcTo({0, mode[0] == '1' ? -1.0 : 1.0, 0}, {centre, 0, 0},
                                         20 - centre, {20, 0, 0}))
            << mode;
    }
}

TEST(ParamScan, SplitsLettersAndNumber) {
    const std::tuple<const char*, const char*, long> rows[] = {
        {"G01", "G", 1},      {"G1X2", "G1X", 2},
        {"FMAX", "FMAX", -1}, {"007", nullptr, 7},
        {"G54.1", "G54.", 1}, {"\xC4\x39", "\xC4", 9},
        {"5A", "5A", -1},     {"G99999999999999999999", "G", 2147483647}};
    Controller controller;
    ParamScan scan(controller);
    EXPECT_EQ(scan.run(), 301) << "without a file";
    EXPECT_EQ(scan.SearchForCommand("COOLANT_ON"), 302);
    char* letters = nullptr;
    for (const auto& [syntax, expected, value] : rows) {
        std::string text = syntax;
        long number = -1;
        EXPECT_EQ(scan.SplitCommand(text.data(), letters, number), 0);
        EXPECT_STREQ(letters, expected) << syntax;
        EXPECT_EQ(number, value) << syntax;
    }
    char empty[] = "";
    long number = 0;
    EXPECT_EQ(scan.SplitCommand(empty, letters, number), 303);
    EXPECT_EQ(scan.SplitCommand(nullptr, letters, number), 303);
}

TEST(ParamScan, ReadsDecimalPlacesFromTheFormatLine) {
    const std::pair<const char*, double> rows[] = {
        {"M5.3", 12.345},  {"B5.3", 12.345}, {"Y.3", 12.345},   {"Z 5.3 ", 12.345},
        {"M5.0", 12345},   {"M5", 12345},    {"A5.3", 12345},   {"m5.3", 12345},
        {"5.3", 12345},    {"", 12345},      {"M.1.3", 1234.5}, {"M5.-2", 1234500},
        {"M5.3x", 12.345}, {"M5.x", 12345}};
    for (const auto& [format, value] : rows) {
        expectAPT(dialectOf({{"1ST_COORDINATE", std::string("X\nignored M1.1\n") + format}}),
                  {{"X12345", goTo(value, 0, 0)}});
    }
}

TEST(ParamScan, StopsAtTheFirstFailure) {
    const std::string head(kHeader);
    for (const char* const entries :
         {"RAPID", "RAPID\n", "MFG_CLASS_NAME", "FEEDRATE\nF", "FEEDRATE\nF\n1\n"}) {
        EXPECT_EQ(convert(head + entries, "M30").code, 302) << entries;
    }
    for (const char* const entries :
         {"", "RAPID\n\n", "RAPID\nG0", "FEEDRATE\nF\n1\n\n", "FEEDRATE\nF\n1\nM5.3",
          "FEEDRATE\n\n", "RAPID\nFMAX2\n", "MFG_CLASS_NAME\nLATHE_MACHINE\nRAPID\nFMAX\n"}) {
        EXPECT_EQ(convert(head + entries, "M30").code, 0) << entries;
    }
    EXPECT_EQ(convert("", "M30").code, 302);
    const Conversion refused = convert(head + "RAPID\nFMAX\nCOOLANT_ON\nM8\n", "M30");
    EXPECT_EQ(refused.code, 345);
    EXPECT_EQ(refused.apt, "Heidenhain Dialog format is not supported. No APTSOURCE is created.\n");
    EXPECT_EQ(refused.log, refused.apt);
    EXPECT_EQ(convert("no mark\nRAPID\nG0\n", "M30").code, 306);
    // An endless line is split, not overrun.
    EXPECT_EQ(convert(head + "COOLANT_ON\n" + std::string(1000, 'M') + "\n", "M30").code, 0);
    EXPECT_EQ(convert(head + std::string(100'000, '\xFF'), "M30").code, 0);
}

TEST(ParamScan, ReadsForeignBytesAndLineEnds) {
    std::string dialect = mill({{"COMMENT_START", "\xA7"}, {"COMMENT_END", "\xB6"}});
    dialect += "COOLANT_ON\nM7\0 junk\n"s;
    const std::string nc = "G1 X1 \xA7 X9 \xB6 Y2 W3\nS9 F5\nM3\nM7\n";
    const std::string apt =
        goTo(1, 2, 3) + "FEDRAT/    5.0000,MMPM\nSPINDL/    9.0000,RPM,CLW\nCOOLNT/ON\n";
    EXPECT_EQ(aptOf(dialect, nc), apt);
    const auto withReturns = [](const std::string& text) {
        return std::regex_replace(text, std::regex("\n"), "\r\n");
    };
    EXPECT_EQ(aptOf(withReturns(dialect), withReturns(nc)), apt);
}

} // namespace
