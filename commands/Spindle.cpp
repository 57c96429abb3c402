#include "commands/Spindle.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

Spindle::Spindle(MachineStatus* status, Factory* factory)
    : SpeedCommand(status), m_writer(factory->GetSpindlCom()) {}

Spindle::~Spindle() = default;

void Spindle::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, MachineStatus* status, int mode) {
    InitSpeedSyntax(syntax, number, group, status);
    m_writer.reset(factory->GetSpindlCom());
    m_mode = mode;
}

void Spindle::keepSpeed(double speed) noexcept { Status().InitSpindleSpeed(speed); }

void Spindle::writeSpeed() { m_writer->InitOutput(m_mode, Status().GetSpindleSpeed()); }
