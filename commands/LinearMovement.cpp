#include "commands/LinearMovement.h"

#include "apt/Factory.h"

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

void LinearMovement::makeMovement(Movement& movement) {
    movement.rapid = m_rapid;
    resolveEndPoint(movement.end);
    movement.arc.reset();
}
