#pragma once

#include "commands/TechnologyCommand.h"

class MachineStatus;
class Parameter;

/// A mode with a value word: the feed modes with the feed, the spindle modes with the speed.
class SpeedCommand : public TechnologyCommand {
public:
    ~SpeedCommand() override;

    /// The value word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { m_speedWord = word; }

    bool TakeWords(char* line) override;

protected:
    explicit SpeedCommand(MachineStatus* status) noexcept : m_status(status) {}

    void InitSpeedSyntax(const char* syntax, const int& number, CommandGroup* group,
                         MachineStatus* status) noexcept;
    [[nodiscard]] MachineStatus& Status() const noexcept { return *m_status; }

private:
    virtual void keepSpeed(double speed) noexcept = 0;

    MachineStatus* m_status;
    Parameter* m_speedWord = nullptr;
};
