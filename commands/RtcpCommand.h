#pragma once

#include "commands/ControlCommand.h"

/// A code that switches RTCP: with it, positions are those of the tip in the part's frame, whatever
/// the rotary axes do. One of the codes may say that tool vectors count.
class RtcpCommand final : public ControlCommand {
public:
    RtcpCommand(Control& control, bool isOn, bool takesVectors) noexcept
        : ControlCommand(control), m_isOn(isOn), m_takesVectors(takesVectors) {}
    ~RtcpCommand() override;

    int Act() override;

private:
    /// The words of the block mean what they do behind the code.
    void takeWords(char* line) override;

    bool m_isOn;
    bool m_takesVectors;
};
