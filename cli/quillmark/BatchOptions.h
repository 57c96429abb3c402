#pragma once

#include "cli/quillmark/FrontEndOptions.h"

#include <string>
#include <vector>

/// One program of a batch and the names of its results.
struct BatchProgram {
    std::string nc;
    std::string output;
    std::string log;
    std::string report;
};

/// What a batch is to do: many programs of one dialect, each in a process of its own.
struct BatchOptions {
    const char* parameter = nullptr; ///< a file, a dialect by name, or "-"
    std::string folder;              ///< of all results
    int jobs = 1;                    ///< how many programs at once
    bool resume = false;             ///< results that are there and newer stay
    bool quiet = false;              ///< failures only
    const char* report = nullptr;    ///< file for the report of the whole batch; null for none
    std::vector<std::string> passed; ///< options that every job gets
    std::vector<BatchProgram> programs;

    /// What is wrong, as a message without the name of the program; empty when nothing is.
    std::string error;
};

/// Takes what `options`, which name a folder, want of a batch. Nothing is opened or made; the
/// programs need not exist. No two programs share a name of a result, and no result is an input.
[[nodiscard]] BatchOptions readBatchOptions(const FrontEndOptions& options);
