#pragma once

#include "cli/quillmark/BatchJob.h"
#include "cli/quillmark/BatchOptions.h"
#include "cli/quillmark/BatchResult.h"
#include "cli/quillmark/InputFiles.h"
#include "cli/quillmark/ReportFile.h"
#include "cli/quillmark/StopSignals.h"

#include <cstddef>
#include <vector>

/// Converts the programs of a batch, several at once, each in a process of its own. What the jobs
/// print comes whole and in the order of the programs.
class BatchRun {
public:
    /// `options` have no error and outlive the run.
    explicit BatchRun(const BatchOptions& options)
        : m_options(options), m_inputs(options.parameter, "/dev/null") {}
    /// Returns the exit status: that of the worst program, the first of these; 128 and the number
    /// of the signal after being told to stop; 2 when folder or report cannot be written; that of
    /// the conversion's code when the parameter file cannot be read.
    [[nodiscard]] int Execute();

private:
    [[nodiscard]] int readParameterFile();
    [[nodiscard]] bool makeFolder() const;
    [[nodiscard]] bool openReport();
    [[nodiscard]] bool writeReport(int exitStatus);
    [[nodiscard]] bool canWriteReport(const char* reason) const noexcept;

    void startJobs();
    void startJob(std::size_t program);
    [[nodiscard]] bool isUpToDate(const BatchProgram& program) const;
    void waitForJobs();
    void tellJobsToStop() noexcept;

    void tellFinished();
    void tell(std::size_t program) noexcept;
    void tellProgress() noexcept;
    void hideProgress() noexcept;
    void tellSummary() noexcept;
    [[nodiscard]] long countOf(BatchOutcome outcome) const noexcept;
    [[nodiscard]] int exitStatus() const noexcept;

    const BatchOptions& m_options;
    InputFiles m_inputs; // the parameter file, and an empty program
    StopSignals m_signals;
    ReportFile m_report;
    std::vector<BatchResult> m_results; // of the programs, in their order
    std::vector<BatchJob> m_jobs;       // those that run
    std::size_t m_begun = 0;            // programs that were begun or left alone
    std::size_t m_told = 0;
    int m_signalsPassed = 0;
    bool m_showsProgress = false;
    bool m_isProgressShown = false;
    long m_doneShown = 0;
};

/// Tells the error of `options` and returns the exit status for it.
[[nodiscard]] int tellBatchError(const BatchOptions& options) noexcept;
