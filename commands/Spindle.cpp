#include "commands/Spindle.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

Spindle::Spindle(MachineStatus* status, Factory* factory)
    : WithWriter(factory->GetSpindlCom(), status) {}

Spindle::~Spindle() = default;

void Spindle::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, MachineStatus* status, int mode) {
    InitSpeedSyntax(syntax, number, group, status);
    replaceWriter(factory->GetSpindlCom());
    m_mode = mode;
}

void Spindle::keepSpeed(double speed) noexcept { Status().InitSpindleSpeed(speed); }

int Spindle::Act() {
    writer().InitOutput(m_mode, Status().GetSpindleSpeed());
    return 0;
}
