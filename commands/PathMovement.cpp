#include "commands/PathMovement.h"

#include "commands/MachineStatus.h"

PathMovement::~PathMovement() = default;

void PathMovement::InitStatus(char* line) {
    status().KeepMovementWord(*this);
    TakeWords(line);
    InitActiveCommand();
}

int PathMovement::Compute(char* line) {
    if (GetNCLineStatus() != TRUE && !TakeWords(line)) {
        return 0;
    }
    const int code = perform();
    SetNCLineStatus(FALSE);
    return code;
}

int PathMovement::Act() {
    m_movement.start = status().GetEndPosition();
    m_movement.feed = status().GetFeedRateSpeed();
    takeToolAxis(m_movement);
    makeMovement(m_movement);
    passStages(m_movement);
    status().KeepMovement(&m_movement); // before an arc that has no direction ends the process
    m_writer.Write(m_movement);
    return 0;
}

// The end position is kept between the assignment and the factors: later words count from there.
void PathMovement::passStages(Movement& movement) const {
    gmVector3& end = movement.end;
    mapping().Assign(end);
    status().InitEndPosition(end[0], end[1], end[2]);
    mapping().Scale(movement.start);
    mapping().Scale(end);
    status().InitBasicPosition(end[0], end[1], end[2]);
    if (movement.arc) {
        mapping().Scale(movement.arc->centre);
    }
}
