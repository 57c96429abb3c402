#include "commands/CompensationCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <cmath>

CompensationCommand::~CompensationCommand() = default;

void CompensationCommand::takeWords(char* line) {
    m_register = control().words.compensationRegister.Take(line, m_status);
}

int CompensationCommand::Act() {
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    constexpr double kMostRegisters = 1e9;
    std::optional<int> number;
    if (m_register) {
        if (!(*m_register >= 0.0 && *m_register < kMostRegisters) ||
            std::trunc(*m_register) != *m_register) {
            return control().Refuse(kBlockRefused, "a register has no whole number");
        }
        number = static_cast<int>(*m_register);
    }
    m_status.Note(BlockNote::kCompensation);
    control().isCompensated = true;
    control().writer->WriteCompensation(m_isLeft, number);
    return 0;
}
