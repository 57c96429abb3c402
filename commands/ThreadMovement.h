#pragma once

#include "commands/PathMovement.h"
#include "commands/ThreadPitch.h"

class Factory;

/// The straight movement that cuts a thread: its feed is the pitch.
class ThreadMovement final : public PathMovement {
public:
    ThreadMovement(MachineStatus* status, Factory* factory);
    ~ThreadMovement() override;

    /// False when the factory had no memory for a writer: the command must not act then.
    [[nodiscard]] bool HasWriter() const noexcept {
        return writer().HasStraight() && m_pitch.HasWriter();
    }

    void InitStatus(char* line) override;
    int ClaimWords(char* line) override;
    /// Refuses a thread without a pitch above 0 and, on a strict control, one that goes nowhere.
    int Act() override;

private:
    bool TakeWords(char* line) override;
    int makeMovement(Movement& movement) override;

    ThreadPitch m_pitch;
    bool m_hasPosition = false; // of the block at hand
};
