// What programs that compute do, a row for each construct in each family that has it. The o-word
// rows are tried on rs274, too, by oWordRows.py.

#include "driver/Controller.h"
#include "include/quillmark_messages.h"
#include "tests/program/ProgramRows.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <sstream>

namespace {

struct Outcome {
    int code = 0;
    std::string apt;
    std::string message; ///< what the error stack and the conversion tell about its failure
};

std::string takeMessage(const Controller& controller) {
    std::string message;
    for (const ErrorStackRecord* record = softErrors; record != nullptr; record = record->next) {
        for (const auto& text : record->c) {
            message.append(text).append("\n");
        }
    }
    freeErrorStack();
    if (const char* const text = controller.LastFailure().text) {
        message.append(text);
    }
    return message;
}

Outcome outcomeOf(const std::string& dialect, const ProgramRow& row) {
    const TempFolder folder;
    for (const auto& [name, text] : row.files) {
        folder.write(name, text);
    }
    Controller controller;
    const int code = controller.execute(folder.write("dialect.pp", dialect + row.dialect).c_str(),
                                        folder.write("part.nc", row.program).c_str(),
                                        folder.path("part.apt").c_str(), nullptr, eOutputAPT);
    return {code, folder.read("part.apt"), takeMessage(controller)};
}

// The numbers of "GOTO/x,y,z" or the last three of an arc's statement, which ends with its end.
Point endOf(const std::string& statement) {
    std::vector<double> numbers;
    std::istringstream stream(statement.substr(statement.rfind('/') + 1));
    for (std::string number; std::getline(stream, number, ',');) {
        numbers.push_back(std::strtod(number.c_str(), nullptr));
    }
    EXPECT_GE(numbers.size(), 3U) << statement;
    numbers.resize(std::max<std::size_t>(numbers.size(), 3));
    return {numbers.end()[-3], numbers.end()[-2], numbers.end()[-1]};
}

std::vector<Point> pointsOf(const std::string& apt) {
    std::vector<Point> points;
    std::istringstream stream(apt);
    std::string statement;
    for (std::string line; std::getline(stream, line);) {
        const bool goesOn = line.ends_with("$");
        statement += goesOn ? line.substr(0, line.size() - 1) : line;
        if (!goesOn) {
            if (statement.starts_with("GOTO/") || statement.starts_with("TLON,")) {
                points.push_back(endOf(statement));
            }
            statement.clear();
        }
    }
    return points;
}

// As the output prints them, and without the sign of a zero.
std::string printed(const std::vector<Point>& points) {
    std::string text;
    for (const Point& point : points) {
        for (const double coordinate : point) {
            char number[64];
            (void)std::snprintf(number, sizeof number, "%.5f ", coordinate == 0 ? 0 : coordinate);
            text += number;
        }
        text += "\n";
    }
    return text;
}

// A row that never ends is to fail soon.
constexpr const char* kFewBlocks = "REV_MOST_BLOCKS\n1000\n";

void expectRows(const std::string& family) {
    const std::string dialect = readFile(std::string(DIALECTS) + family + "-mill.pp") + kFewBlocks;
    for (const ProgramRow& row : programRows(std::string(ROWS) + family + ".txt")) {
        SCOPED_TRACE(row.title + "\n" + row.program);
        const Outcome outcome = outcomeOf(dialect, row);
        EXPECT_EQ(outcome.code, row.code) << outcome.message;
        EXPECT_EQ(printed(pointsOf(outcome.apt)), printed(row.points));
        EXPECT_THAT(outcome.message, testing::HasSubstr(row.message));
    }
}

TEST(Flow, OWord) { expectRows("o-word"); }
TEST(Flow, Hash) { expectRows("hash"); }
TEST(Flow, RParameter) { expectRows("r-parameter"); }

} // namespace
