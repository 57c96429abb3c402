#include "commands/PathMovement.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

PathMovement::~PathMovement() = default;

void PathMovement::InitStatus(char* line) {
    status().KeepMovementWord(*this);
    Control* const control = status().GetControl();
    keepCode(control == nullptr ? 0 : control->NoteMovementCommand());
    m_hasWords = TakeWords(line);
    InitActiveCommand();
}

int PathMovement::Compute(char* line) {
    const bool wasFound = GetNCLineStatus() == TRUE;
    if (!wasFound) {
        m_hasWords = TakeWords(line);
    }
    Control* const control = status().GetControl();
    if (control != nullptr && control->actions.IsInUse() && isGivenTwice(Axes())) {
        return control->Refuse(kBlockRefused, "an axis has its place and an increment");
    }
    const bool hasWords =
        m_hasWords && !(wasFound && control != nullptr && control->AreAxisWordsTaken());
    const bool movesAnyway = wasFound && (control == nullptr || control->MovesWithoutWords());
    SetNCLineStatus(FALSE);
    if (!hasWords && !movesAnyway) {
        (void)takeFound(Axes()); // words that belong to nobody do not wait for the next block
        return 0;
    }
    return perform();
}

int PathMovement::Act() {
    begin();
    const int code = makeMovement(m_movement);
    return code != 0 ? code : write();
}

int PathMovement::moveTo(Boolean rapid, const gmVector3& point, bool needsFeed) {
    begin();
    m_movement.needsFeed = needsFeed;
    m_movement.rapid = rapid;
    m_movement.end = point;
    m_movement.arc.reset();
    return write();
}

void PathMovement::begin() {
    m_movement.start = status().GetEndPosition();
    m_movement.feed = status().GetFeedRateSpeed();
    m_movement.sweep.reset();
    m_movement.axis.reset();
    takeToolAxis(m_movement);
}

int PathMovement::write() {
    if (Control* const control = status().GetControl()) {
        if (const int code = control->CheckFeed(m_movement); code != 0) {
            return code;
        }
        if (control->hasStages) {
            return control->Pass(m_movement, Mapping());
        }
    }
    passStages(m_movement);
    status().KeepMovement(&m_movement); // before an arc that has no direction ends the process
    m_writer.Write(m_movement);
    return 0;
}

// The end position is kept between the assignment and the factors: later words count from there.
void PathMovement::passStages(Movement& movement) const {
    gmVector3& end = movement.end;
    Mapping().Assign(end);
    status().InitEndPosition(end[0], end[1], end[2]);
    Mapping().Scale(movement.start);
    Mapping().Scale(end);
    status().InitBasicPosition(end[0], end[1], end[2]);
    if (movement.arc) {
        Mapping().Scale(movement.arc->centre);
    }
}
