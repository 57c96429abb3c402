#pragma once

#include "commands/ControlCommand.h"

#include <cstddef>

/// A code that puts a zero system in force.
class ZeroSystemCommand final : public ControlCommand {
public:
    ZeroSystemCommand(Control& control, std::size_t index) noexcept
        : ControlCommand(control), m_index(index) {}
    ~ZeroSystemCommand() override;

    int Act() override;

private:
    std::size_t m_index;
};
