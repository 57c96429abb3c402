#include "commands/LinearMovement.h"

#include "apt/Factory.h"

LinearMovement::LinearMovement(MachineStatus* status, Factory* factory)
    : MovementCommand(status), m_writer(factory->GetLinearCom()) {}

LinearMovement::~LinearMovement() = default;

void LinearMovement::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                    CommandGroup* group, MachineStatus* status, Boolean rapid) {
    InitMovementSyntax(syntax, number, group, status);
    m_writer.reset(factory->GetLinearCom());
    m_rapid = rapid;
}

void LinearMovement::InitStatus(char* line) {
    scanCoordinates(line);
    InitActiveCommand();
}

int LinearMovement::Compute(char* line) {
    if (GetNCLineStatus() != TRUE && !scanCoordinates(line)) {
        return 0;
    }
    gmVector3 target = moveTo(resolveEndPoint());
    writeToolAxis(*m_writer);
    m_writer->InitOutput(m_rapid, target[0], target[1], target[2]);
    SetNCLineStatus(FALSE);
    return 0;
}
