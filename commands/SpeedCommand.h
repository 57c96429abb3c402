#pragma once

#include "commands/ModalCommand.h"

class MachineStatus;
class Parameter;

/// A mode with a value word: the feed modes with the feed, the spindle modes with the speed. Its
/// own word writes the statement; while it is active, a value word alone may write it again.
class SpeedCommand : public ModalCommand {
public:
    ~SpeedCommand() override;

    /// The value word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { m_speedWord = word; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

protected:
    explicit SpeedCommand(MachineStatus* status) noexcept : m_status(status) {}

    void InitSpeedSyntax(const char* syntax, const int& number, CommandGroup* group,
                         MachineStatus* status) noexcept;
    [[nodiscard]] MachineStatus& Status() const noexcept { return *m_status; }

private:
    virtual void keepSpeed(double speed) noexcept = 0;
    virtual void writeSpeed() = 0;
    /// Whether a value word alone is a reason to write.
    [[nodiscard]] virtual bool repeatsItself() const noexcept { return true; }
    bool consumeSpeed(char* line);

    MachineStatus* m_status;
    Parameter* m_speedWord = nullptr;
};
