#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/RotaryWord.h"

#include <cstddef>
#include <optional>

/// A code that writes into the tables of the control. Two kinds of them concern the path: the
/// origins of zero systems, given in coordinates of the machine (2) or so that the tool has the
/// given coordinates (20). The words of the others are taken and do nothing.
class TableCommand final : public ControlCommand {
public:
    explicit TableCommand(Control& control) noexcept : ControlCommand(control) {}
    ~TableCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    int act();
    int findSystem(std::size_t& index);
    int setOrigin(std::size_t index);
    void noteUnknown();
    void setByPosition(std::size_t index);
    void setAngles(std::size_t index, bool byPosition);

    AxisValues m_values; // of the block at hand, as all of these
    RotaryValues m_rotary;
    std::optional<double> m_kind;
    std::optional<double> m_number;
    std::optional<double> m_angle;
};
