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
    if (const int code = goThrough(); code != 0) {
        return code;
    }
    if (const auto zero = control().coordinates.zeros.MachineZero()) {
        return goToKnown(*zero);
    }
    goHome();
    return 0;
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

int ReferencePointCommand::goToKnown(const gmVector3& machineZero) {
    const CoordinateSystem& coordinates = control().coordinates;
    const gmVector3 reference =
        control().FromLengths(coordinates.FromStart(control().home + machineZero));
    gmVector3 point = control().Status().GetEndPosition();
    for (int axis = 0; axis < 3; ++axis) {
        if (isNamed(axis)) {
            point[axis] = reference[axis];
        }
    }
    return m_rapid.MoveTo(point);
}

void ReferencePointCommand::goHome() {
    control().writer->WriteGoHome();
    control().Status().Note(BlockNote::kUnknownPlace);
    gmVector3 point = control().Status().GetEndPosition();
    for (int axis = 0; axis < 3; ++axis) {
        if (isNamed(axis)) {
            point[axis] = AxisKnowledge::kUnknown;
        }
    }
    control().Status().InitEndPosition(point[0], point[1], point[2]);
}
