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

void Spindle::keepValue(double value) noexcept {
    status().InitSpindleSpeed(value);
    m_newSpeed = value;
}

void Spindle::InitStatus(char* line) {
    if (Control* const control = status().GetControl()) {
        control->speedWaits = false;
        m_starts = true;
    }
    m_newSpeed.reset();
    TechnologyCommand::InitStatus(line);
}

int Spindle::Compute(char* line) {
    Control* const control = status().GetControl();
    const bool speedWaits = control != nullptr && std::exchange(control->speedWaits, false);
    const bool hasSpeed = TakeWords(line);
    if (const int code = hasSpeed ? checkValue() : 0; code != 0) {
        return code;
    }
    if (!actsOnValueAlone()) {
        m_newSpeed.reset();
        return 0;
    }
    return hasSpeed || speedWaits ? perform() : 0;
}

// The unit in which a cutting speed counts may have changed since.
int Spindle::Act() {
    if (m_newSpeed) {
        status().InitSpindleSpeed(*m_newSpeed);
        m_newSpeed.reset();
    }
    const double speed = status().GetSpindleSpeed();
    Control* const control = status().GetControl();
    if (control != nullptr && std::exchange(m_starts, false)) {
        control->awaitsSpindle = false;
    }
    if (control != nullptr && control->isCuttingSpeed) {
        const LengthUnits& units = control->units;
        writer().WriteCuttingSpeed(m_mode, speed * units.CuttingSpeedToOutput(),
                                   units.IsOutputInch());
    } else {
        writer().InitOutput(m_mode, speed);
    }
    return 0;
}
