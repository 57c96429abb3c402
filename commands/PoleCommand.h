#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
#include "commands/PolarCoordinates.h"
#include "commands/RotaryWord.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// A code that sets the pole of polar coordinates by its axis words, or by radius and angle. A word
/// left out is 0.
class PoleCommand final : public ControlCommand {
public:
    /// What the words count from.
    enum class Base { kPosition, kZero, kPole };

    PoleCommand(Control& control, Base base) noexcept : ControlCommand(control), m_base(base) {}
    ~PoleCommand() override;

    int Act() override;

private:
    void takeWords(char* line) override;
    int takeOffset(gmVector3& offset) const;

    Base m_base;
    // Of the block at hand.
    RotaryValues m_rotary; // of the block at hand
    AxisValues m_values;
    std::optional<PolarCoordinates::Direction> m_direction;
};
