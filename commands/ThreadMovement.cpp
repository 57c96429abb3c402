#include "commands/ThreadMovement.h"

#include "apt/Factory.h"

ThreadMovement::ThreadMovement(MachineStatus* status, Factory* factory)
    : PathMovement(status), m_pitch(*status, factory) {
    writer().SetStraight(factory->GetLinearCom());
    setRank(CommandRank::kTakesWords);
}

ThreadMovement::~ThreadMovement() = default;

void ThreadMovement::InitStatus(char* line) {
    m_pitch.Take(line);
    PathMovement::InitStatus(line);
}

// A block with the command's own word has given its pitch already.
void ThreadMovement::ClaimWords(char* line) {
    if (GetNCLineStatus() != TRUE) {
        m_pitch.Take(line);
    }
}

int ThreadMovement::makeMovement(Movement& movement) {
    movement.rapid = FALSE;
    movement.arc.reset();
    movement.needsFeed = false;
    return resolveEndPoint(movement.end);
}

int ThreadMovement::Act() {
    int code = m_pitch.Begin();
    code = code != 0 ? code : PathMovement::Act();
    if (code == 0) {
        m_pitch.End();
    }
    return code;
}
