#pragma once

#include "commands/Control.h"
#include "commands/NonModalCommand.h"

/// The word ("MCALL") by which the cycle called in its block is called again by every later block
/// that moves, and which alone ends that.
class ModalCycle final : public NonModalCommand {
public:
    /// `control` must outlive the command.
    explicit ModalCycle(Control& control) noexcept : m_control(control) {}
    ~ModalCycle() override;

    void InitStatus(char* line) override;

private:
    Control& m_control;
};
