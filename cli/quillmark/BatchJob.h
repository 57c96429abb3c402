#pragma once

#include "cli/quillmark/BatchResult.h"

#include <csignal>
#include <span>
#include <string>

/// The process that converts one program of a batch. What it prints, on either stream, goes to its
/// result; its standard input is empty. It is in a process group of its own, so a terminal's Ctrl-C
/// reaches the batch alone, which tells its jobs.
class BatchJob {
public:
    /// Starts this executable with `arguments`, the first of them its own name, and the signals of
    /// `mask` blocked. When that fails, `result` tells why, and IsRunning is false. `result` must
    /// outlive the job.
    BatchJob(std::span<const std::string> arguments, const sigset_t& mask, BatchResult& result);
    BatchJob(BatchJob&& other) noexcept;
    BatchJob& operator=(BatchJob&& other) noexcept;
    ~BatchJob();

    [[nodiscard]] bool IsRunning() const noexcept { return m_descriptor >= 0; }
    /// Readable when the process has printed something or has ended.
    [[nodiscard]] int Descriptor() const noexcept { return m_descriptor; }
    /// Takes what was printed, and the result when the process has ended. `stopSignal` is the one
    /// that Tell gave; 0 for none.
    void Read(int stopSignal);
    void Tell(int signal) const noexcept;

private:
    void takeEnd(int stopSignal) noexcept;

    pid_t m_process = -1;
    int m_descriptor = -1;
    BatchResult* m_result;
};
