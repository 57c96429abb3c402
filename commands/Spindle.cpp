#include "commands/Spindle.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

Spindle::Spindle(MachineStatus* status, Factory* factory)
    : WithWriter(factory->GetSpindlCom(), status) {}

Spindle::~Spindle() = default;

void Spindle::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, MachineStatus* status, int mode) {
    InitModalSyntax(syntax, number, group);
    initStatus(status);
    replaceWriter(factory->GetSpindlCom());
    m_mode = mode;
}

void Spindle::keepValue(double value) noexcept { status().InitSpindleSpeed(value); }

int Spindle::Act() {
    writer().InitOutput(m_mode, status().GetSpindleSpeed());
    return 0;
}
