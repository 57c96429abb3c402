#include "commands/SpeedCommand.h"

#include "commands/consumeWord.h"

SpeedCommand::~SpeedCommand() = default;

void SpeedCommand::InitSpeedSyntax(const char* syntax, const int& number, CommandGroup* group,
                                   MachineStatus* status) noexcept {
    InitModalSyntax(syntax, number, group);
    m_status = status;
}

bool SpeedCommand::TakeWords(char* line) {
    const std::optional<double> speed = consumeWord(m_speedWord, line, m_status);
    if (speed) {
        keepSpeed(*speed);
    }
    return speed.has_value();
}
