#include "commands/Spindle.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"

#include <utility>

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

void Spindle::InitStatus(char* line) {
    if (Control* const control = status().GetControl()) {
        control->speedWaits = false;
    }
    TechnologyCommand::InitStatus(line);
}

int Spindle::Compute(char* line) {
    Control* const control = status().GetControl();
    const bool speedWaits = control != nullptr && std::exchange(control->speedWaits, false);
    return (TakeWords(line) || speedWaits) && actsOnValueAlone() ? perform() : 0;
}

int Spindle::Act() {
    const double speed = status().GetSpindleSpeed();
    const Control* const control = status().GetControl();
    if (control != nullptr && control->isCuttingSpeed) {
        const LengthUnits& units = control->units;
        writer().WriteCuttingSpeed(m_mode, speed * units.CuttingSpeedToOutput(),
                                   units.IsOutputInch());
    } else {
        writer().InitOutput(m_mode, speed);
    }
    return 0;
}
