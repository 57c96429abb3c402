#pragma once

#include "apt/ResFeedRate.h"
#include "commands/SpeedCommand.h"

#include <memory>

class Factory;

/// The feed mode: one instance per minute, one per revolution. Its word and, while it is active, a
/// feed word alone write the feed statement.
class FeedRate : public SpeedCommand {
public:
    FeedRate(MachineStatus* status, Factory* factory);
    ~FeedRate() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean perMinute);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

private:
    void keepSpeed(double speed) noexcept override;
    void writeSpeed() override;

    std::unique_ptr<ResFeedRate> m_writer;
    Boolean m_perMinute = TRUE;
};
