#include "commands/AxisKnowledge.h"

#include <cmath>

bool AxisKnowledge::IsKnown(const gmVector3& point) {
    return !std::isnan(point[0]) && !std::isnan(point[1]) && !std::isnan(point[2]);
}

std::string AxisKnowledge::NameUnknown(const gmVector3& point) {
    std::string names;
    for (int axis = 0; axis < 3; ++axis) {
        if (std::isnan(point[axis])) {
            names += names.empty() ? "" : ", ";
            names += static_cast<char>('X' + axis);
        }
    }
    return names;
}

void AxisKnowledge::Hold(Movement& movement) {
    m_isHolding = true;
    if (movement.toolAxis) {
        m_toolAxis = movement.toolAxis;
    }
}

void AxisKnowledge::Release(Movement& movement) noexcept {
    m_isHolding = false;
    if (m_toolAxis && !movement.toolAxis) {
        movement.toolAxis = m_toolAxis;
    }
    m_toolAxis.reset();
}
