#include "commands/SpeedLimitCommand.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <string>

SpeedLimitCommand::SpeedLimitCommand(Control& control, MachineStatus& status) noexcept
    : ControlCommand(control), m_status(status) {
    setRank(CommandRank::kClaimsBlocks);
}

SpeedLimitCommand::~SpeedLimitCommand() = default;

bool SpeedLimitCommand::Claims(const char* line) const {
    std::string copy(line); // taking a word changes the block
    return control().words.TakeSpeed(copy.data(), m_status).has_value();
}

void SpeedLimitCommand::takeWords(char* line) {
    m_limit = control().words.TakeSpeed(line, m_status).value_or(0.0);
    m_hasAxisWords = std::ranges::any_of(control().TakeAxisWords(line),
                                         [](const auto& axis) { return axis.has_value(); });
    const RotaryValues rotary = control().TakeRotaryValues();
    m_hasAxisWords = m_hasAxisWords || rotary[0] || rotary[1];
}

int SpeedLimitCommand::Act() {
    return m_hasAxisWords ? control().Refuse(kBlockRefused, "a limit of the speed has axis words")
                          : control().LimitSpeed(m_limit);
}
