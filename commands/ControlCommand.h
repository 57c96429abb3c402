#pragma once

#include "commands/NonModalCommand.h"

class Control;

/// A code of a control that is no member of a modal group: it takes the words that belong to it
/// when it is found, and acts in its turn. Where the dialect has no order of acting, a zero system
/// or a shift acts when all modes of its block are known.
class ControlCommand : public NonModalCommand {
public:
    /// `control` must outlive the command.
    explicit ControlCommand(Control& control) noexcept : m_control(control) {
        setRank(CommandRank::kTakesWords);
    }
    ~ControlCommand() override;

    void InitStatus(char* line) final;

protected:
    [[nodiscard]] Control& control() const noexcept { return m_control; }

private:
    /// Takes the words out of the block and keeps what they say. There are none here.
    virtual void takeWords(char* /*line*/) {}

    Control& m_control;
};
