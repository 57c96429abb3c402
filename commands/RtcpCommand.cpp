#include "commands/RtcpCommand.h"

#include "commands/Control.h"

RtcpCommand::~RtcpCommand() = default;

void RtcpCommand::takeWords(char* /*line*/) {
    control().rotary->AnnounceRtcp(m_isOn, m_takesVectors);
}

int RtcpCommand::Act() {
    control().rotary->SwitchRtcp(control(), m_isOn, m_takesVectors);
    return 0;
}
