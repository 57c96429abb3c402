#include "tests/control/ControlRows.h"

#include "paramfile/keys.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>

namespace {

// Parentheses are no comments in that family.
std::string withoutParentheses(std::string dialect) {
    const std::string comments = "COMMENT_START\n(\nCOMMENT_END\n)\n";
    return dialect.erase(dialect.find(comments), comments.size());
}

constexpr const char* kFolder = "dialects/";

std::string machine(const std::string& name) {
    if (name.starts_with(kFolder)) {
        return readFile(std::string(SOURCES) + name);
    }
    const std::map<std::string, std::string> machines = {
        {"mill", mill()},
        {"lathe", lathe()},
        {"o-word", mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}})},
        {"hash", mill({{"REV_PROGRAM_LANGUAGE", "HASH"}})},
        {"r-parameter", withoutParentheses(mill({{"REV_PROGRAM_LANGUAGE", "R_PARAMETER"}}))},
    };
    EXPECT_TRUE(machines.contains(name)) << name;
    return machines.contains(name) ? machines.at(name) : "";
}

bool isAddress(const std::string& name) {
    for (const auto& keys : keyTables()) {
        for (const Key& key : keys) {
            if (name == key.text) {
                return key.form == Key::Form::kAddress;
            }
        }
    }
    return false;
}

// "KEY VALUE" as the lines of a parameter file.
std::string entry(const std::string& text) {
    const std::size_t end = text.find(' ');
    const std::string key = text.substr(0, end);
    const std::string value = end == std::string::npos ? "" : text.substr(end + 1);
    return key + "\n" + value + "\n" + (isAddress(key) ? "1\nM5.3\n" : "");
}

// "!509 a dwell has no time"
void readRefusal(const std::string& text, ControlRow& row) {
    char* end = nullptr;
    row.code = static_cast<int>(std::strtol(text.c_str() + 1, &end, 10));
    row.message = *end == ' ' ? end + 1 : end;
}

enum class Part { kDialect, kProgram, kAPT, kBetween };

} // namespace

std::vector<ControlRow> controlRows(const std::string& path) {
    std::vector<ControlRow> rows;
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    std::string dialect;
    bool isOfFolder = false;
    Part part = Part::kBetween;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("# ") || line == "#") {
            continue;
        }
        if (line.starts_with("## ")) {
            dialect = machine(line.substr(3));
            isOfFolder = line.starts_with(std::string("## ") + kFolder);
            part = Part::kDialect;
        } else if (line.starts_with("== ")) {
            ControlRow& row = rows.emplace_back();
            row.title = line.substr(3);
            row.dialect = dialect;
            row.isWhollyRead = isOfFolder;
            part = Part::kProgram;
        } else if (line == "=>") {
            EXPECT_EQ(part, Part::kProgram) << path << ": " << line;
            part = Part::kAPT;
        } else if (line.empty()) {
            EXPECT_NE(part, Part::kProgram) << path << ": " << rows.back().title;
            part = part == Part::kAPT ? Part::kBetween : part;
        } else if (part == Part::kDialect) {
            dialect += entry(line);
        } else if (part == Part::kProgram && line.starts_with("+ ")) {
            rows.back().dialect += entry(line.substr(2));
        } else if (part == Part::kProgram) {
            rows.back().program += line + "\n";
        } else if (part == Part::kAPT && line.starts_with("? ")) {
            rows.back().told.push_back(line.substr(2));
        } else if (part == Part::kAPT && line.starts_with("!")) {
            readRefusal(line, rows.back());
        } else if (part == Part::kAPT) {
            rows.back().apt.push_back(line);
        } else {
            ADD_FAILURE() << path << ": nothing begins with " << line;
        }
    }
    EXPECT_NE(part, Part::kProgram) << path << ": the last row lacks its outcome";
    return rows;
}
