#pragma once

#include "tests/support/convert.h"

#include <string>
#include <utility>
#include <vector>

/// One program that computes, and what must come out of it. In a file of rows it reads
///
///     == what it shows
///     the lines of the program
///     -- NAME           then the lines of a file of this name beside the program
///     -- dialect        then lines that stand behind those of the dialect
///     => 1 2,3 1,2,-3 !506 NO TOOL
///
/// with the points at which its movements end, coordinates left out being 0, and behind them, where
/// it must fail, the return code and a part of the message. What stands between a row and the next
/// is for the reader; a title with "rs274" tells where that interpreter does otherwise.
struct ProgramRow {
    std::string title;
    std::string program;
    std::vector<std::pair<std::string, std::string>> files;
    std::string dialect;
    std::vector<Point> points;
    int code = 0;
    std::string message;
};

/// The rows of a file, which must be well formed.
[[nodiscard]] std::vector<ProgramRow> programRows(const std::string& path);
