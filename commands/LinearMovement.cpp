#include "commands/LinearMovement.h"

#include "apt/Factory.h"
#include "commands/ArcWords.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

LinearMovement::LinearMovement(MachineStatus* status, Factory* factory) : PathMovement(status) {
    writer().SetStraight(factory->GetLinearCom());
}

LinearMovement::~LinearMovement() = default;

void LinearMovement::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                    CommandGroup* group, MachineStatus* status, Boolean rapid) {
    InitMovementSyntax(syntax, number, group, status);
    writer().SetStraight(factory->GetLinearCom());
    m_rapid = rapid;
}

bool LinearMovement::TakeWords(char* line) {
    bool found = PathMovement::TakeWords(line);
    Control* const control = status().GetControl();
    if (control != nullptr && control->rotary != nullptr) {
        found |= control->rotary->TakeVector(line, *control);
    }
    m_hasArcWords = control != nullptr && control->computesArcs &&
                    !takeArcWords(line, *control, status()).IsEmpty();
    return found || m_hasArcWords;
}

int LinearMovement::makeMovement(Movement& movement) {
    movement.rapid = m_rapid;
    movement.arc.reset();
    if (m_hasArcWords) {
        return status().GetControl()->Refuse(
            kArcRefused, "a radius or centre word in a straight block would be a corner (rounding "
                         "or chamfer), which is not converted");
    }
    return resolveEndPoint(movement.end);
}
