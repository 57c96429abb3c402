#pragma once

#include <string>
#include <utility>
#include <vector>

/// How a program runs: in which folder, with what on its standard input (a pipe), and with which
/// additions to the environment.
struct ProgramSetting {
    std::string folder = ".";
    std::string input;
    std::vector<std::pair<std::string, std::string>> environment;
};

struct ProgramResult {
    int status = 0; ///< exit code, or minus the number of the signal that ended it
    std::string out;
    std::string err;
};

/// Runs `arguments[0]` with its arguments to its end; one that hangs is ended by a signal.
[[nodiscard]] ProgramResult runProgram(const std::vector<std::string>& arguments,
                                       const ProgramSetting& setting = {});
