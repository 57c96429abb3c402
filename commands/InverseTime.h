#pragma once

#include "commands/TechnologyCommand.h"

class Control;

/// The feed mode in which the feed word says how often in a minute the block could be run. Every
/// block that moves at feed has one of its own.
class InverseTime final : public TechnologyCommand {
public:
    /// Becomes one of the control's codes for it. Both must outlive the command.
    InverseTime(MachineStatus* status, Control& control);
    ~InverseTime() override;

    /// The value word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { initValueWord(word); }
    static bool HasWriter() noexcept { return true; }

    void InitStatus(char* line) override;
    int Act() override;

private:
    void keepValue(double value) noexcept override;
};
