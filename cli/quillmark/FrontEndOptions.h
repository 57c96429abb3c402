#pragma once

#include <string>
#include <vector>

/// The options that belong to the front end, and the arguments that are left without them.
struct FrontEndOptions {
    bool summary = false;
    bool quiet = false;
    bool strict = false;
    bool skipBlocks = false;
    bool whole = false;                   ///< results get their names when they are whole
    bool resume = false;                  ///< of a batch: what is there and newer stays
    const char* report = nullptr;         ///< name of the report file; null for none
    const char* into = nullptr;           ///< folder for the results of a batch; null for none
    const char* view = nullptr;           ///< page or picture of the path; null for none
    const char* jobs = nullptr;           ///< as given; null for one for each processor
    std::vector<std::string> subprograms; ///< folders in which subprograms are looked for

    /// What is wrong with the options, for a message; null when nothing is.
    const char* usageError = nullptr;
    /// What is passed over without effect, and likely was meant: a line for each.
    std::vector<std::string> warnings;
    /// Options that are given again, of a batch as well: a line for each.
    std::vector<std::string> repetitions;
    /// The arguments that no option takes: the programs of a batch.
    std::vector<const char*> strays;
    /// The program's name and the arguments of Controller::run, with a null behind them.
    std::vector<char*> arguments;

    [[nodiscard]] int ArgumentCount() const noexcept {
        return static_cast<int>(arguments.size()) - 1;
    }
};

/// Takes the front end's options out of a command line. What stands where an option of the
/// conversion expects its value is that value and stays, whatever it looks like. All pointers point
/// into `argv`, except the error, which has static storage.
[[nodiscard]] FrontEndOptions readFrontEndOptions(int argc, char** argv);
