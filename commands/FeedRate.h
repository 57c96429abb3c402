#pragma once

#include "apt/ResFeedRate.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

#include <optional>

class Factory;

/// The feed mode: one instance per minute, one per revolution. Its word and, while it is active, a
/// feed word alone write the feed statement.
class FeedRate : public WithWriter<TechnologyCommand, ResFeedRate> {
public:
    FeedRate(MachineStatus* status, Factory* factory);
    ~FeedRate() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean perMinute);

    /// The value word; not owned, may be null.
    void InitSpeedParm(Parameter* word) noexcept { initValueWord(word); }
    [[nodiscard]] Parameter* GetSpeedParm() const noexcept { return valueWord(); }

    void InitStatus(char* line) override;
    int Act() override;

private:
    void keepValue(double value) noexcept override;
    [[nodiscard]] bool actsOnValueAlone() const noexcept override { return true; }

    std::optional<double> m_newFeed; // of the block at hand
    Boolean m_perMinute = TRUE;
};
