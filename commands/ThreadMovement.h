#pragma once

#include "apt/ResFeedRate.h"
#include "commands/PathMovement.h"

#include <memory>
#include <optional>

class Factory;

/// The straight movement that cuts a thread: its feed is the pitch, and the feed before holds again
/// behind it. The word of the pitch stands in each of its blocks; where it is also the word of the
/// feed, the last pitch holds on until a feed is given.
class ThreadMovement final : public PathMovement {
public:
    ThreadMovement(MachineStatus* status, Factory* factory);
    ~ThreadMovement() override;

    /// False when the factory had no memory for a writer: the command must not act then.
    [[nodiscard]] bool HasWriter() const noexcept {
        return writer().HasStraight() && m_feedWriter != nullptr;
    }

    void InitStatus(char* line) override;
    int ClaimWords(char* line) override;
    /// Refuses a thread without a pitch above 0 and, on a strict control, one that goes nowhere.
    int Act() override;

private:
    bool TakeWords(char* line) override;
    int makeMovement(Movement& movement) override;
    void takePitch(char* line);
    void writePitch(double pitch) const;
    void writeFeed();

    std::unique_ptr<ResFeedRate> m_feedWriter;
    std::optional<double> m_pitch; // of the block at hand, in the program's unit
    bool m_hasPosition = false;    // the same block
};
