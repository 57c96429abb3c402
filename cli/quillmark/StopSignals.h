#pragma once

#include <csignal>
#include <iterator>
#include <poll.h>
#include <span>

/// The signals by which a user asks a run to stop.
inline constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// Of a batch; a single run has RunWatch. Takes Ctrl-C, SIGTERM and SIGHUP for as long as it lives,
/// those excepted that are ignored. They arrive within Wait and nowhere else. There is one at a
/// time.
class StopSignals {
public:
    StopSignals() noexcept;
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals();

    /// Waits until one of `descriptors` is ready or a signal arrived.
    void Wait(std::span<pollfd> descriptors) noexcept;
    /// The first signal that arrived; 0 for none.
    [[nodiscard]] int First() const noexcept;
    /// How many arrived.
    [[nodiscard]] int Count() const noexcept;
    /// The signals that were blocked before.
    [[nodiscard]] const sigset_t& MaskBefore() const noexcept { return m_maskBefore; }

private:
    sigset_t m_maskBefore{};
    sigset_t m_maskOfWait{};
    struct sigaction m_before[std::size(kStopSignals)]{};
};
