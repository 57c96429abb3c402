#pragma once

#include <string>

/// What became of one program of a batch.
enum class BatchOutcome {
    kNotBegun,
    kRunning,
    kLeftAlone, ///< its output is newer than its inputs, and the batch resumes
    kConverted, ///< exit status 0, the results have their names
    kFailed,
    kStopped ///< ended because the batch was told to stop
};

struct BatchResult {
    BatchOutcome outcome = BatchOutcome::kNotBegun;
    int exitStatus = 0; ///< of the process, when no signal ended it
    int signal = 0;     ///< that ended the process; 0 for none
    int startError = 0; ///< errno, when the process could not be started; else 0
    std::string text;   ///< all that the process printed
};

/// What a shell makes of the end of the process; 2 when it could not be started.
[[nodiscard]] int statusOf(const BatchResult& result) noexcept;

/// How bad it is: text not recognised or a warning under --strict, then a result that cannot be
/// written, then a conversion that failed, then a process that a signal ended. 0 is no failure.
[[nodiscard]] int severityOf(const BatchResult& result) noexcept;

/// Why it failed, as a phrase for a message.
[[nodiscard]] std::string failureText(const BatchResult& result);
