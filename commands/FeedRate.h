#pragma once

#include "apt/ResFeedRate.h"
#include "commands/SpeedCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The feed mode: one instance per minute, one per revolution. Its word and, while it is active, a
/// feed word alone write the feed statement.
class FeedRate : public WithWriter<SpeedCommand, ResFeedRate> {
public:
    FeedRate(MachineStatus* status, Factory* factory);
    ~FeedRate() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean perMinute);

    int Act() override;

private:
    void keepSpeed(double speed) noexcept override;
    [[nodiscard]] bool actsOnWordsAlone() const noexcept override { return true; }

    Boolean m_perMinute = TRUE;
};
