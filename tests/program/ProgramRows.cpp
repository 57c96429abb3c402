#include "tests/program/ProgramRows.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {

Point pointOf(const std::string& text) {
    Point point{};
    std::istringstream stream(text);
    std::string coordinate;
    for (double& value : point) {
        if (std::getline(stream, coordinate, ',')) {
            value = std::strtod(coordinate.c_str(), nullptr);
        }
    }
    return point;
}

// "1 2,3 !506 NO TOOL"
void readOutcome(const std::string& text, ProgramRow& row) {
    std::istringstream stream(text);
    std::string word;
    while (stream >> word && word.front() != '!') {
        row.points.push_back(pointOf(word));
    }
    if (word.starts_with("!")) {
        row.code = std::atoi(word.c_str() + 1);
        std::getline(stream >> std::ws, row.message);
    }
}

} // namespace

std::vector<ProgramRow> programRows(const std::string& path) {
    std::vector<ProgramRow> rows;
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    std::string* part = nullptr; // what the next line belongs to
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("== ")) {
            rows.emplace_back().title = line.substr(3);
            part = &rows.back().program;
        } else if (part == nullptr) {
            EXPECT_TRUE(line.empty() || line.starts_with("#")) << path << ": " << line;
        } else if (line == "-- dialect") {
            part = &rows.back().dialect;
        } else if (line.starts_with("-- ")) {
            part = &rows.back().files.emplace_back(line.substr(3), "").second;
        } else if (line.starts_with("=> ")) {
            readOutcome(line.substr(3), rows.back());
            part = nullptr;
        } else {
            part->append(line).append("\n");
        }
    }
    EXPECT_EQ(part, nullptr) << path << ": " << rows.back().title << " lacks its outcome";
    return rows;
}
