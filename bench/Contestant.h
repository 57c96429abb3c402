#pragma once

#include <string>
#include <vector>

/// A program with its arguments, and what its runs took.
struct Contestant {
    std::string name;
    std::vector<std::string> command;
    std::string output;         ///< removed before every run, so that each one makes a new file
    std::vector<double> wall{}; ///< seconds
    std::vector<double> processor{}; ///< seconds
    long peakKibibytes = 0;

    /// One run in that folder, its standard streams leading nowhere. Throws a Failure when it ends
    /// with another status than 0.
    void Run(const std::string& folder);
    /// A row of the table; with 0 blocks it has no rate.
    void Print(double blocks) const;
};

/// What a ratio or a figure is to be.
enum class Bound { kAtLeast, kAtMost, kNone };

/// The wall clock decides; on a busy machine the processor time tells how far to trust it.
void printRatio(const char* text, const Contestant& over, const Contestant& under, Bound bound,
                double goal);
void printMemory(const char* text, long kibibytes, double goal);
