#include "commands/ReferencePointCommand.h"

#include "commands/Control.h"
#include "commands/LinearMovement.h"
#include "commands/MachineStatus.h"

#include <algorithm>
#include <cmath>

namespace {

bool differ(double a, double b) noexcept { return a != b && !(std::isnan(a) && std::isnan(b)); }

} // namespace

ReferencePointCommand::~ReferencePointCommand() = default;

void ReferencePointCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_hasWords = std::ranges::any_of(m_values, [](const auto& v) { return v.has_value(); });
}

bool ReferencePointCommand::isNamed(int axis) const {
    return !m_hasWords || m_values[static_cast<std::size_t>(axis)].has_value();
}

int ReferencePointCommand::Act() {
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    if (const int code = goThrough(); code != 0) {
        return code;
    }
    return goToReferencePoint();
}

// A point where the tool is already, as in "G91 G28 Z0", is no way.
int ReferencePointCommand::goThrough() {
    const gmVector3 present = control().Status().GetEndPosition();
    gmVector3 point = present;
    if (const int code = control().ResolvePoint(m_values, point); code != 0) {
        return code;
    }
    const bool isWay = differ(point[0], present[0]) || differ(point[1], present[1]) ||
                       differ(point[2], present[2]);
    return isWay ? m_rapid.MoveTo(point) : 0;
}

// Axes whose place nobody knows go there as a statement says, and are unknown from then on.
int ReferencePointCommand::goToReferencePoint() {
    gmVector3 reference = control().home;
    for (int axis = 0; axis < 3; ++axis) {
        reference[axis] += control().MachineZero(axis).value_or(AxisKnowledge::kUnknown);
    }
    reference = control().FromLengths(control().coordinates.FromStart(reference));
    gmVector3 point = control().Status().GetEndPosition();
    bool isKnown = true;
    for (int axis = 0; axis < 3; ++axis) {
        if (isNamed(axis)) {
            point[axis] = reference[axis];
            isKnown = isKnown && !std::isnan(point[axis]);
        }
    }
    if (isKnown) {
        return m_rapid.MoveTo(point);
    }
    control().writer->WriteGoHome();
    control().Status().Note(BlockNote::kUnknownPlace);
    control().Status().InitEndPosition(point[0], point[1], point[2]);
    return 0;
}
