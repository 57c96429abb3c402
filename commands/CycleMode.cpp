#include "commands/CycleMode.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

#include <algorithm>

bool CycleMode::Has(const Command* command) const noexcept {
    return std::ranges::find(m_cycles, command) != m_cycles.end();
}

void CycleMode::Enter(const Command& cycle, Command* before) noexcept {
    m_isNewCode = m_isNewCode || &cycle != before;
    if (!Has(before)) {
        m_before = before;
        m_isFresh = true;
    }
}

int CycleMode::Use(Control& control, double height, bool givesAll) {
    const CoordinateMark now(control);
    const std::string change = m_isFresh ? "" : now.ChangeSince(m_mark);
    const bool beginsAgain = givesAll && !change.empty() && height == m_startHeight;
    if (m_isFresh || beginsAgain) {
        m_isFresh = false;
        m_mark = now;
        m_startHeight = height;
        clearance.reset();
        depth.reset();
        peck.reset();
        if (!rules.isStrict) {
            dwell.reset();
        }
        return 0;
    }
    return change.empty()
               ? 0
               : control.Refuse(kWordNotConverted,
                                "the " + change + " changes while cycles go on: end them before");
}
