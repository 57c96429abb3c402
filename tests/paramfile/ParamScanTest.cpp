#include "paramfile/ParamScan.h"

#include "driver/Controller.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace std::string_literals;

namespace {

// Whether a parameter file gives some command or address word the text "Q".
bool configuresQ(const std::string& dialect) {
    const TempFolder folder;
    Controller controller;
    EXPECT_EQ(controller.SetOutputType(eOutputAPT, folder.path("apt").c_str(), nullptr), 0);
    EXPECT_EQ(controller.scanParamFile(folder.write("dialect.pp", dialect).c_str()), 0);
    const auto isQ = [](const char* text) {
        return text != nullptr && std::strcmp(text, "Q") == 0;
    };
    bool found = false;
    const AvailableCommands& commands = controller.Availablecommands();
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        found = found || isQ(commands.GetCommand(i)->GetSyntaxString());
    }
    const AvailableParameters& words = controller.Availableparameters();
    for (int i = 0; i < words.GetParameterCount(); ++i) {
        found = found || isQ(words.GetParameter(i)->GetSyntaxString());
    }
    return found;
}

TEST(ParamScan, TellsTheKeysOfMillsAndLathesApart) {
    struct Machines {
        bool mill;
        bool lathe;
        std::vector<const char*> keys;
    };
    // A stray byte behind an exact key does no harm, and a lathe counts the suffix by its length.
    // The keys that are not exact match whatever begins with them, on any machine.
    const Machines rows[] = {
        {true,
         false,
         {"RAPID", "  RAPID  ", "RAPIDX", "RAPID_", "RAPIDX Y", "LINEAR_INTERPOLATION",
          "CIRCULAR_INTERPOLATION_RIGHT", "1ST_COORDINATE", "2ND_COORDINATE_INCR"}},
        {false,
         true,
         {"RAPID_LATHE", "RAPID_LATHE  ", "RAPID_LATHEX", "RAPID_MILLS", "1ST_COORDINATE_LATHE",
          "LINEAR_INTERPOLATION_LATHE", "CIRCULAR_INTERPOLATION_RIGHT_LATHE",
          "3RD_COORDINATE_INCR_LATHE"}},
        {true,
         true,
         {"CIRCULAR_INTERPOLATION_LEFT", "CIRCULAR_INTERPOLATION_LEFT_LATHE", "SPINDLE_OFF_LATHE",
          "SPINDLE_CLOCKWISE_2ND", "FEEDRATE_LATHE", "PROGRAM_END_LATHE",
          "3RD_CIRCLE_CENTER_COORDINATE_LATHE"}},
        {false,
         false,
         {"RAPID X", "RAPID_2ND", "RAPID_LATH", "RAPID_LATHE_2ND", "xRAPID", "rapid",
          "LINEAR_INTERPOLATION_2ND_LATHE", "1ST_COORDINATE_INCR_2ND", "SPINDLE_OFF", "FEEDRAT"}},
    };
    // Bytes of an older, longer line never decide.
    const std::string filler = std::string(250, 'F') + "\n";
    for (const Machines& row : rows) {
        for (const char* const key : row.keys) {
            const std::string entry = filler + key + "\nQ\n1\nM5.3\n";
            const std::string head = std::string(kHeader) + "MFG_CLASS_NAME\n";
            EXPECT_EQ(configuresQ(head + "MILLING_MACHINE\n" + entry), row.mill) << key;
            EXPECT_EQ(configuresQ(head + "MY_LATHE_MACHINE_2\n" + entry), row.lathe) << key;
        }
    }
}

TEST(ParamScan, LeavesTheValueLineOfARefusedKeyAlone) {
    EXPECT_EQ(aptOf(mill({{"RAPID_2ND", "COOLANT_ON\nM7"}}), "M7"), "COOLNT/ON\n");
    EXPECT_EQ(aptOf(mill({{"RAPID_2ND", "COOLANT_ON\nM7"}}), "M8"), "");
    // An accepted key takes its value line whatever it holds.
    EXPECT_EQ(aptOf(mill({{"COOLANT_OFF", "COOLANT_ON\nM7"}}), "M7"), "");
}

TEST(ParamScan, LetsTheLastEntryWinAndEmptyValuesChangeNothing) {
    const std::string dialect =
        mill({{"COOLANT_ON", "M7"}, {"COOLANT_ON", "   "}, {"COMMENT_END", ""}});
    EXPECT_EQ(aptOf(dialect, "M7 (M9)"), "COOLNT/ON\n");
    EXPECT_EQ(aptOf(dialect, "M8"), "");
    // The class counts for the keys behind it: here G10 is no rapid traverse.
    EXPECT_EQ(aptOf(mill({{"MFG_CLASS_NAME", "LATHE_MACHINE"}, {"RAPID", "G10"}}), "G1\nG10 X2"),
              goTo(0, 0, 0) + goTo(2, 0, 0));
}

TEST(ParamScan, SplitsLettersAndNumber) {
    const std::tuple<const char*, const char*, long> rows[] = {
        {"G01", "G", 1},         {"G1X2", "G1X", 2},
        {"G54.1", "G54.", 1},    {"FMAX", "FMAX", -1},
        {"007", nullptr, 7},     {"5A", "5A", -1},
        {"G-1", "G-", 1},        {"G 4", "G ", 4},
        {"\xC4\x39", "\xC4", 9}, {"G99999999999999999999", "G", 2147483647}};
    Controller controller;
    ParamScan scan(controller);
    char* letters = nullptr;
    long number = -1;
    for (const auto& [syntax, expected, value] : rows) {
        std::string text = syntax;
        letters = nullptr;
        number = -1;
        EXPECT_EQ(scan.SplitCommand(text.data(), letters, number), 0);
        EXPECT_STREQ(letters, expected) << syntax;
        EXPECT_EQ(number, value) << syntax;
    }
    char empty[] = "";
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
    const std::string nc = "G1 X1 \xA7 X9 \xB6 Y2\nM7\n";
    const std::string apt = goTo(1, 2, 0) + "COOLNT/ON\n";
    EXPECT_EQ(aptOf(dialect, nc), apt);
    std::string withReturns;
    for (const char c : dialect) {
        withReturns += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    EXPECT_EQ(aptOf(withReturns, "G1 X1 \xA7 X9 \xB6 Y2\r\nM7\r\n"), apt);
}

} // namespace
