#pragma once

#include "apt/ResFeedRate.h"
#include "commands/ModalCommand.h"
#include "commands/Parameter.h"

#include <memory>

class Factory;
class MachineStatus;

/// The feed mode: one instance per minute, one per revolution. Its word and, while it is active, a
/// feed word alone write the feed statement.
class FeedRate : public ModalCommand {
public:
    FeedRate(MachineStatus* status, Factory* factory);
    ~FeedRate() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean perMinute);
    /// The feed word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { m_speedWord = word; }
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    bool consumeSpeed(char* line);

    MachineStatus* m_status;
    std::unique_ptr<ResFeedRate> m_writer;
    Boolean m_perMinute = TRUE;
    Parameter* m_speedWord = nullptr;
};
