#include "commands/ThreadMovement.h"

#include "apt/Factory.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

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
int ThreadMovement::ClaimWords(char* line) {
    if (GetNCLineStatus() != TRUE) {
        m_pitch.Take(line);
    }
    return 0;
}

// A strict control wants to see the block of its code also when no position stands on it.
bool ThreadMovement::TakeWords(char* line) {
    m_hasPosition = PathMovement::TakeWords(line);
    return m_hasPosition || (GetNCLineStatus() == TRUE && status().GetControl()->isStrict);
}

int ThreadMovement::makeMovement(Movement& movement) {
    movement.rapid = FALSE;
    movement.arc.reset();
    movement.needsFeed = false;
    return resolveEndPoint(movement.end);
}

int ThreadMovement::Act() {
    Control& control = *status().GetControl();
    if (control.isStrict && !m_hasPosition) {
        return control.Refuse(kBlockRefused, "a thread code has no position");
    }
    int code = m_pitch.Begin();
    code = code != 0 ? code : PathMovement::Act();
    if (code == 0) {
        m_pitch.End();
    }
    return code;
}
