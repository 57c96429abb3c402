#pragma once

#include "apt/ResFeedRate.h"

#include <memory>
#include <optional>

class Factory;
class MachineStatus;

/// The feed of a thread: its pitch, behind which the feed before holds again. The word of the pitch
/// stands in each block of a thread; where it is also the word of the feed, the last pitch holds on
/// until a feed is given.
class ThreadPitch {
public:
    /// The status must outlive it.
    ThreadPitch(MachineStatus& status, Factory* factory);

    /// False when the factory had no memory for a writer.
    [[nodiscard]] bool HasWriter() const noexcept { return m_feedWriter != nullptr; }

    /// Takes the word of the pitch out of the block.
    void Take(char* line);
    /// Tells the pitch. Returns 0, or the code of a thread without a pitch above 0.
    int Begin();
    /// Tells the feed before, if there was one.
    void End();

private:
    MachineStatus& m_status;
    std::unique_ptr<ResFeedRate> m_feedWriter;
    std::optional<double> m_pitch; // of the block at hand, in the program's unit
};
