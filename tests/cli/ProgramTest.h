#pragma once

#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <array>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

/// A row of a table in text: three cells with "|" between them.
using TableRow = std::array<std::string, 3>;

/// The rows of a table in text, one per line; cells left out are empty.
inline std::vector<TableRow> rowsOf(const std::string& table) {
    std::vector<TableRow> rows;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream cells(line);
        for (std::string& cell : rows.emplace_back()) {
            std::getline(cells, cell, '|');
        }
    }
    return rows;
}

inline std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// The program in a folder with a good dialect and program.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() {
        m_folder.write("a.pp", kDialect);
        m_folder.write("a.nc", kProgram);
    }

    /// Runs it with arguments that blanks separate.
    [[nodiscard]] ProgramResult runAlone(const std::string& arguments,
                                         const std::string& input = "") const {
        std::vector<std::string> all = wordsOf(arguments);
        all.insert(all.begin(), QUILLMARK_PROGRAM);
        return runProgram(all, {m_folder.path(), input, {}});
    }
    /// With the usual files, which options behind them can replace.
    [[nodiscard]] ProgramResult run(const std::string& options,
                                    const std::string& input = "") const {
        return runAlone("-p a.pp -nc a.nc -of o " + options, input);
    }

    const std::string kDialect = mill();
    const std::string kProgram = "G1 X1\n";
    TempFolder m_folder;
};
