#include "commands/ControlCommand.h"

#include "commands/Control.h"

ControlCommand::~ControlCommand() = default;

void ControlCommand::InitStatus(char* line) {
    takeWords(line);
    const int code = m_control.CheckAxisWords();
    if (code == 0 && m_control.NeedsModes(*this)) {
        m_control.beforeMovement.Add(*this);
    } else {
        keepCode(code != 0 ? code : perform());
    }
    SetNCLineStatus(FALSE);
}
