#include "commands/CycleMode.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>

namespace {

// What is not known stays so.
bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool isSamePoint(const gmVector3& a, const gmVector3& b) {
    return isSame(a[0], b[0]) && isSame(a[1], b[1]) && isSame(a[2], b[2]);
}

} // namespace

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

int CycleMode::Use(Control& control, double height) {
    const Place now = placeOf(control);
    if (m_isFresh) {
        m_isFresh = false;
        m_place = now;
        m_startHeight = height;
        clearance.reset();
        depth.reset();
        peck.reset();
        if (!rules.isStrict) {
            dwell.reset();
        }
        return 0;
    }
    const std::string change = changeSince(now);
    return change.empty()
               ? 0
               : control.Refuse(kWordNotConverted,
                                "the " + change + " changes while cycles go on: end them before");
}

CycleMode::Place CycleMode::placeOf(const Control& control) {
    Place place{.plane = control.plane, .isInch = control.units.IsInch(), .axes = {}};
    for (int axis = 0; axis < 3; ++axis) {
        place.axes[static_cast<std::size_t>(axis)][axis] = 1.0;
    }
    for (gmVector3& point : place.axes) {
        point = control.coordinates.ToStart(point);
    }
    return place;
}

std::string CycleMode::changeSince(const Place& now) const {
    if (now.plane != m_place.plane) {
        return "plane";
    }
    if (now.isInch != m_place.isInch) {
        return "unit";
    }
    return std::ranges::equal(now.axes, m_place.axes, isSamePoint) ? "" : "zero";
}
