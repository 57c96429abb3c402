#include "commands/Spindle.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"
#include "commands/consumeWord.h"

Spindle::Spindle(MachineStatus* status, Factory* factory)
    : m_status(status), m_writer(factory->GetSpindlCom()) {}

Spindle::~Spindle() = default;

void Spindle::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, MachineStatus* status, int mode) {
    InitModalSyntax(syntax, number, group);
    m_status = status;
    m_writer.reset(factory->GetSpindlCom());
    m_mode = mode;
}

bool Spindle::consumeSpeed(char* line) {
    const std::optional<double> speed = consumeWord(m_speedWord, line, m_status);
    if (speed) {
        m_status->InitSpindleSpeed(*speed);
    }
    return speed.has_value();
}

void Spindle::InitStatus(char* line) {
    consumeSpeed(line);
    m_writer->InitOutput(m_mode, m_status->GetSpindleSpeed());
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int Spindle::Compute(char* line) {
    if (consumeSpeed(line) && m_mode != 0) {
        m_writer->InitOutput(m_mode, m_status->GetSpindleSpeed());
    }
    return 0;
}
