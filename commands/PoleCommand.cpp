#include "commands/PoleCommand.h"

#include "commands/Control.h"

PoleCommand::~PoleCommand() = default;

void PoleCommand::takeWords(char* line) {
    m_offset = control().LengthsOf(control().TakeAxisWords(line));
    if (control().polar.TakeWords(line, control().Status())) {
        m_offset += control().polar.TakeOffset(control().plane);
    }
}

int PoleCommand::Act() {
    PolarCoordinates& polar = control().polar;
    switch (m_base) {
    case Base::kPosition:
        polar.SetPole(control().Position() + m_offset);
        break;
    case Base::kZero:
        polar.SetPole(m_offset);
        break;
    case Base::kPole:
        polar.SetPole(polar.Pole() + m_offset);
        break;
    }
    return 0;
}
