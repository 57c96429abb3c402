#include "commands/ReferencePointCommand.h"

#include "commands/Control.h"
#include "commands/LinearMovement.h"
#include "commands/MachineStatus.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

bool differ(double a, double b) noexcept { return a != b && !(std::isnan(a) && std::isnan(b)); }

bool isAny(const auto& values) noexcept {
    return std::ranges::any_of(values, [](const auto& value) { return value.has_value(); });
}

} // namespace

ReferencePointCommand::~ReferencePointCommand() = default;

void ReferencePointCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_rotary = control().TakeRotaryValues();
    m_hasWords = isAny(m_values) || isAny(m_rotary);
}

bool ReferencePointCommand::isNamed(int axis) const {
    return !m_hasWords || m_values[static_cast<std::size_t>(axis)].has_value();
}

int ReferencePointCommand::Act() {
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    if (const int code = control().CheckRotary(m_rotary, true); code != 0) {
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
    bool isWay = differ(point[0], present[0]) || differ(point[1], present[1]) ||
                 differ(point[2], present[2]);
    if (RotaryAxes* const axes = control().rotary.get()) {
        axes->GiveValues(m_rotary);
        isWay = isWay || axes->AskForTurn(control());
    }
    const int code = isWay ? m_rapid.MoveTo(point) : 0;
    (void)control().TakeRotaryValues();
    return code;
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
    RotaryAxes* const axes = control().rotary.get();
    if (axes != nullptr && axes->IsInUse()) {
        const std::array<bool, 2> turned = {!m_hasWords || m_rotary[0], !m_hasWords || m_rotary[1]};
        axes->AimAtZero(turned);
        // An axis of the machine alone takes the tip along, and nobody knows how far.
        isKnown = isKnown && !((turned[0] || turned[1]) && axes->HidesMachine());
    }
    if (isKnown) {
        return m_rapid.MoveTo(point);
    }
    if (axes != nullptr && axes->HidesMachine()) {
        // Of the axes of the machine no more than one may move, of the tip's coordinates all do.
        point.assign(AxisKnowledge::kUnknown, AxisKnowledge::kUnknown, AxisKnowledge::kUnknown);
    }
    control().writer->WriteGoHome();
    control().Status().Note(BlockNote::kUnknownPlace);
    control().Status().InitEndPosition(point[0], point[1], point[2]);
    if (axes != nullptr) {
        axes->StandAsAimed();
    }
    return 0;
}
