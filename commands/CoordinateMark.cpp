#include "commands/CoordinateMark.h"

#include "commands/Control.h"

#include <algorithm>
#include <cmath>

namespace {

// What is not known stays so.
bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool isSamePoint(const gmVector3& a, const gmVector3& b) {
    return isSame(a[0], b[0]) && isSame(a[1], b[1]) && isSame(a[2], b[2]);
}

} // namespace

CoordinateMark::CoordinateMark(const Control& control)
    : m_plane(control.plane), m_isInch(control.units.IsInch()),
      m_system(control.coordinates.zeros.Current()) {
    for (int axis = 0; axis < 3; ++axis) {
        m_axes[static_cast<std::size_t>(axis)][axis] = 1.0;
    }
    for (gmVector3& point : m_axes) {
        point = control.coordinates.ToStart(control.ToLengths(point));
    }
}

const char* CoordinateMark::ChangeSince(const CoordinateMark& before) const {
    if (m_plane != before.m_plane) {
        return "plane";
    }
    if (m_isInch != before.m_isInch) {
        return "unit";
    }
    const bool isSameZero =
        m_system == before.m_system && std::ranges::equal(m_axes, before.m_axes, isSamePoint);
    return isSameZero ? "" : "zero";
}
