#pragma once

#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"
#include "tests/support/runProgram.h"

#include <array>
#include <gtest/gtest.h>
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

/// The programs in a folder with a good dialect and program.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() {
        m_folder.write("a.pp", kDialect);
        m_folder.write("a.nc", kProgram);
    }

    /// Runs a shell command in the folder, which finds the programs.
    [[nodiscard]] ProgramResult shell(const std::string& command,
                                      const std::string& input = "") const {
        return runProgram(
            {"sh", "-c", command},
            {m_folder.path(), input, {{"PATH", QUILLMARK_PROGRAMS ":/usr/bin:/bin"}}});
    }
    /// Converts the usual files, in place of which the options can name others.
    [[nodiscard]] ProgramResult run(const std::string& options,
                                    const std::string& input = "") const {
        std::string usual;
        for (const std::string file : {"-p a.pp ", "-nc a.nc ", "-of o "}) {
            const std::string option = " " + file.substr(0, file.find(' ') + 1);
            usual += (" " + options).find(option) == std::string::npos ? file : "";
        }
        return shell("exec quillmark " + usual + options, input);
    }
    [[nodiscard]] std::string read(const std::string& name) const { return m_folder.read(name); }

    const std::string kDialect = mill();
    const std::string kProgram = "G1 X1\n";
    const TempFolder m_folder;
};
