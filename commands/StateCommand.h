#pragma once

#include "commands/ControlCommand.h"

/// A code without words that does one thing to the control.
class StateCommand final : public ControlCommand {
public:
    using Change = void (*)(Control& control);

    StateCommand(Control& control, Change change,
                 CommandRank rank = CommandRank::kTakesWords) noexcept
        : ControlCommand(control), m_change(change) {
        setRank(rank);
    }
    ~StateCommand() override;

    int Act() override;

private:
    Change m_change;
};
