// What the codes of controls write: tables of small programs with their whole APT, made by hand.

#include "cli/quillmark/reportKeys.h"
#include "driver/Controller.h"
#include "tests/control/ControlRows.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>

namespace {

struct Outcome {
    int code = 0;
    std::string apt;
    std::string message;
    long unreadBlocks = 0;
    std::vector<std::string> told;
};

// In the order of the report. Of what the rests of blocks warn, each kind counts by itself.
std::vector<std::string> toldIn(const ScanReport& report) {
    std::vector<std::string> told;
    const auto tell = [&](const char* key, long count) {
        if (count > 0) {
            told.push_back(std::string(key) + " " + std::to_string(count));
        }
    };
    for (const OddityRow& row : kOddityRows) {
        if (row.level == Level::kWarning) {
            tell(row.key, report.Of(row.oddity).count);
        }
    }
    for (const auto& row : kWarningRows) {
        tell(row.key, std::ranges::count(report.FirstWarnings(), row.kind, &Warning::kind));
    }
    return told;
}

Outcome outcomeOf(const ControlRow& row) {
    const TempFolder folder;
    Controller controller;
    const int code = controller.execute(folder.write("dialect.pp", row.dialect).c_str(),
                                        folder.write("part.nc", row.program).c_str(),
                                        folder.path("part.apt").c_str(), nullptr, eOutputAPT);
    const char* const text = controller.LastFailure().text;
    return {code, folder.read("part.apt"), code == 0 || text == nullptr ? "" : text,
            controller.Report().UnrecognisedBlocks(), toldIn(controller.Report())};
}

std::string withoutBlanks(std::string line) {
    std::erase(line, ' ');
    return line;
}

// A number may be written without the blanks that fill its field. Where one is written with them,
// the line counts to the byte.
std::string fieldsAsIn(const std::string& example, const std::string& line) {
    return example.find(' ') == std::string::npos ? withoutBlanks(line) : line;
}

std::vector<std::string> linesOf(const std::string& text,
                                 const std::vector<std::string>& expected) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t place = lines.size();
        lines.push_back(place < expected.size() ? fieldsAsIn(expected[place], line) : line);
    }
    return lines;
}

void expectRows(const std::string& name) {
    for (const ControlRow& row : controlRows(std::string(ROWS) + name + ".txt")) {
        SCOPED_TRACE(row.title + "\n" + row.program);
        const Outcome outcome = outcomeOf(row);
        EXPECT_EQ(outcome.code, row.code) << outcome.message;
        EXPECT_EQ(linesOf(outcome.apt, row.apt), row.apt);
        EXPECT_EQ(outcome.told, row.told);
        EXPECT_TRUE(outcome.unreadBlocks == 0 || !row.isWhollyRead);
        EXPECT_THAT(outcome.message, testing::HasSubstr(row.message));
    }
}

TEST(Control, Arcs) { expectRows("arcs"); }

TEST(Control, Axes) { expectRows("axes"); }

TEST(Control, Coordinates) { expectRows("coordinates"); }

TEST(Control, Order) { expectRows("order"); }

TEST(Control, Cycles) { expectRows("cycles"); }

TEST(Control, Programs) { expectRows("programs"); }

TEST(Control, Technology) { expectRows("technology"); }

} // namespace
