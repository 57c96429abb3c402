#include "commands/TableCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double kOrigins = 2.0;
constexpr double kOriginsByPosition = 20.0;

constexpr double kParameters = 50.0; // this kind and those above it

constexpr double kToolTables[] = {0.0, 1.0, 10.0, 11.0};

bool isWhole(double value) noexcept {
    constexpr double kTolerance = 1e-4;
    return std::abs(value - std::round(value)) <= kTolerance;
}

} // namespace

TableCommand::~TableCommand() = default;

void TableCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_rotary = control().TakeRotaryValues();
    m_kind = control().words.tableKind.Take(line, control().Status());
    m_number = control().words.tableNumber.Take(line, control().Status());
    m_angle = control().words.tableAngle.Take(line, control().Status());
}

int TableCommand::Act() {
    if (m_kind && !isWhole(*m_kind)) {
        return control().Refuse(kBlockRefused, "the kind of a table is no whole number");
    }
    const double kind = m_kind ? std::round(*m_kind) : 0.0;
    if (kind == kOrigins || kind == kOriginsByPosition) {
        return act();
    }
    if (kind >= kParameters && !control().isStrict) {
        return control().Refuse(kWordNotConverted, "the program changes parameters of the control");
    }
    const bool isTool = std::ranges::find(kToolTables, kind) != std::end(kToolTables);
    return control().isStrict && !(m_kind && isTool)
               ? control().Refuse(kBlockRefused, "there is no table of that kind")
               : 0;
}

int TableCommand::act() {
    std::size_t index = 0;
    if (const int code = findSystem(index); code != 0) {
        return code;
    }
    if (const int code = control().CheckRotary(m_rotary, true); code != 0) {
        return code;
    }
    const bool countsUp = !control().isStrict && control().IsIncrementalMode();
    if (countsUp ||
        std::ranges::any_of(m_values,
                            [](const auto& value) { return value && value->isIncremental; }) ||
        std::ranges::any_of(m_rotary,
                            [](const auto& word) { return word && word->value.isIncremental; })) {
        return control().Refuse(kBlockRefused, "an origin is given in incremental dimensions");
    }
    ZeroSystems& zeros = control().coordinates.zeros;
    if (const int code = index == zeros.Current() ? control().CheckUncompensated() : 0; code != 0) {
        return code;
    }
    setAngles(index, std::round(*m_kind) == kOriginsByPosition);
    if (std::round(*m_kind) == kOrigins) {
        return setOrigin(index);
    }
    if (m_angle) {
        return control().Refuse(kBlockRefused, "an angle stands in a table by positions");
    }
    setByPosition(index);
    if (index == zeros.Current() && !zeros.IsKnown(index)) {
        control().Status().Note(BlockNote::kUnknownOrigin);
    }
    return 0;
}

// Number 0 is the system in force; a fraction does not count.
int TableCommand::findSystem(std::size_t& index) {
    const ZeroSystems& zeros = control().coordinates.zeros;
    constexpr double kTolerance = 1e-4;
    const double whole = m_number ? std::floor(*m_number + kTolerance) : -1.0;
    if (!(whole >= 0.0) || whole > static_cast<double>(zeros.Count())) {
        return control().Refuse(kBlockRefused, "a table of origins has no such zero system");
    }
    const auto number = static_cast<std::size_t>(whole);
    index = number == 0 ? zeros.Current() : number - 1;
    return 0;
}

// Controls lose the tool when the system in force turns under a shift: an arc would begin
// elsewhere.
int TableCommand::setOrigin(std::size_t index) {
    CoordinateSystem& coordinates = control().coordinates;
    ZeroSystems& zeros = coordinates.zeros;
    const bool isCurrent = index == zeros.Current();
    if (isCurrent && m_angle && *m_angle != zeros.AngleOf(index) &&
        coordinates.WholeShift().length() > 0.0) {
        return control().Refuse(kWordNotConverted, "the zero system in force turns under a shift");
    }
    const gmVector3 given = control().LengthsOf(m_values);
    control().Recoordinate([&] {
        for (int axis = 0; axis < 3; ++axis) {
            if (m_values[static_cast<std::size_t>(axis)]) {
                zeros.SetMachineOrigin(index, axis, given[axis]);
            }
        }
        if (m_angle) {
            zeros.SetAngle(index, *m_angle);
        }
    });
    if (isCurrent && !zeros.IsKnown(index)) {
        noteUnknown();
    }
    return 0;
}

// Where an axis has moved in its zero before, only machine zero says how far the new one lies from
// it.
void TableCommand::noteUnknown() {
    bool isLost = false;
    for (int axis = 0; axis < 3 && !control().coordinates.zeros.MachineZero(); ++axis) {
        isLost = isLost ||
                 (m_values[static_cast<std::size_t>(axis)] && control().Status().IsAxisGiven(axis));
    }
    control().Status().Note(isLost ? BlockNote::kUnknownPlace : BlockNote::kUnknownOrigin);
}

// The coordinates are those behind frame and shift, as the tool has them in that system.
void TableCommand::setByPosition(std::size_t index) {
    CoordinateSystem& coordinates = control().coordinates;
    const gmVector3 place = coordinates.ToStart(control().Position());
    ZeroSystems& zeros = coordinates.zeros;
    const double angle = zeros.AngleOf(index);
    const gmVector3 origin = zeros.OriginOf(index);
    const gmVector3 present = CoordinateSystem::Turned(place - origin, -angle);
    const gmVector3 given = control().LengthsOf(m_values) + coordinates.WholeShift();
    gmVector3 step;
    for (int axis = 0; axis < 3; ++axis) {
        step[axis] = m_values[static_cast<std::size_t>(axis)] ? present[axis] - given[axis] : 0.0;
    }
    const gmVector3 moved = origin + CoordinateSystem::Turned(step, angle);
    control().Recoordinate([&] {
        for (int axis = 0; axis < 3; ++axis) {
            if (m_values[static_cast<std::size_t>(axis)] || moved[axis] != origin[axis]) {
                zeros.SetOrigin(index, axis, moved[axis]);
            }
        }
    });
}

// The zero of a rotary axis in the machine is known.
void TableCommand::setAngles(std::size_t index, bool byPosition) {
    for (std::size_t axis = 0; axis < m_rotary.size(); ++axis) {
        if (const auto& word = m_rotary.at(axis)) {
            RotaryAxes& axes = *control().rotary;
            const double rest = axes.OffsetOf(axis, index) - axes.OriginOf(axis, index);
            axes.SetOrigin(index, axis,
                           byPosition ? axes.AngleOf(axis) - rest - word->value.value
                                      : word->value.value);
        }
    }
}
