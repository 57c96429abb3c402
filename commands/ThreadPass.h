#pragma once

#include "commands/LathePass.h"
#include "commands/ThreadPitch.h"

class Factory;

/// A pass along Z that cuts a thread: its feed is the pitch, and the way out is rapid.
class ThreadPass final : public LathePass {
public:
    /// All must outlive the command.
    ThreadPass(Control& control, MachineStatus& status, Factory* factory);
    ~ThreadPass() override;

    /// False when the factory had no memory for a writer: the command must not act then.
    [[nodiscard]] bool HasWriter() const noexcept { return m_pitch.HasWriter(); }

    void InitStatus(char* line) override;
    int ClaimWords(char* line) override;

private:
    int makePass(const PassPoints& points) override;

    ThreadPitch m_pitch;
};
