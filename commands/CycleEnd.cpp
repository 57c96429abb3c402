#include "commands/CycleEnd.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

CycleEnd::~CycleEnd() = default;

// A movement code in the same block counts, wherever it stands: its status says that it was found.
void CycleEnd::InitStatus(char* /*line*/) {
    SetNCLineStatus(FALSE);
    const Command* const active = status().GetMovementCom()->GetActiveCommand();
    if (active != nullptr && active->GetNCLineStatus() == TRUE) {
        return;
    }
    if (m_control.cycles.rules.isStrict) {
        InitActiveCommand();
    } else if (m_control.cycles.Has(active)) {
        status().GetMovementCom()->SetActiveCommand(m_control.cycles.Before());
    }
}

int CycleEnd::Compute(char* line) {
    return TakeWords(line) ? m_control.Refuse(kBlockRefused, "a position has no movement code") : 0;
}
