#include "commands/SpeedModeCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

SpeedModeCommand::~SpeedModeCommand() = default;

void SpeedModeCommand::takeWords(char* line) {
    const ControlWords& words = control().words;
    m_speed = words.TakeSpeed(line, m_status);
    m_limit = words.speedLimit.Take(line, m_status);
    control().speedWaits = true;
}

int SpeedModeCommand::Act() {
    if (m_isCuttingSpeed && !m_speed) {
        return control().Refuse(kBlockRefused, "a cutting speed has no number");
    }
    control().isCuttingSpeed = m_isCuttingSpeed;
    if (m_speed) {
        m_status.InitSpindleSpeed(*m_speed);
    }
    return m_limit ? control().LimitSpeed(*m_limit) : 0;
}
