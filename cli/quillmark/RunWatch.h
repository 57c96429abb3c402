#pragma once

#include "driver/NCScan.h"

/// What a run hears from outside. SIGINT, SIGTERM and SIGHUP end its conversion behind the block in
/// work; the second one of a kind ends the process as ever. A conversion that takes longer than a
/// second tells a terminal how far it is. One at a time: the signals are those of the process.
class RunWatch : public BlockWatch {
public:
    /// Takes over the signals, except those that the process was started to ignore. `scan` outlives
    /// the watch. A signal breaks off a read that waits for a pipe, unless the run writes to one: a
    /// write would lose what it has not written yet.
    RunWatch(NCScan& scan, bool writesToPipe) noexcept;
    ~RunWatch() override;

    /// Shows the progress every second from now on.
    void ShowProgress() noexcept;
    /// Ends the showing and removes the line that was shown; nothing is broken off any more.
    void HideProgress() noexcept;
    /// The signal that came, or 0.
    [[nodiscard]] static int Signal() noexcept;

private:
    static void onSignal(int signal) noexcept;
    static void onLateRead(int signal) noexcept;
    static void onTick(int signal) noexcept;
    bool decide() noexcept override;
    void printProgress() noexcept;

    NCScan& m_scan;
    const bool m_restartsCalls;
    bool m_showsProgress = false;
    bool m_hasShown = false;
};
