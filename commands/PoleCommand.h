#pragma once

#include "commands/AxisWords.h"
#include "commands/ControlCommand.h"
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

    Base m_base;
    gmVector3 m_offset; // of the block at hand
};
