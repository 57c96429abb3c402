#include "commands/ShiftCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>

namespace {

bool isAny(const auto& values) noexcept {
    return std::ranges::any_of(values, [](const auto& value) { return value.has_value(); });
}

} // namespace

ShiftCommand::~ShiftCommand() = default;

void ShiftCommand::takeWords(char* line) {
    m_values = {};
    m_rotary = {};
    const bool movesByWords = m_kind == Kind::kCancel && control().isStrict;
    if (!movesByWords) {
        m_values = control().TakeAxisWords(line);
        m_rotary = control().TakeRotaryValues();
    }
}

int ShiftCommand::Act() {
    if (const int code = control().CheckRotary(m_rotary, true); code != 0) {
        return code;
    }
    const bool hasWords = isAny(m_values) || isAny(m_rotary);
    if (m_kind == Kind::kCancel) {
        cancel();
        return 0;
    }
    if (!hasWords) {
        return control().isStrict ? control().Refuse(kBlockRefused, "a shift names no axis") : 0;
    }
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    if (m_kind == Kind::kSet) {
        setPresentAngles();
        return isAny(m_values) ? setPresent() : 0;
    }
    setLocal();
    return 0;
}

int ShiftCommand::setPresent() {
    CoordinateSystem& coordinates = control().coordinates;
    const gmVector3 present = control().Position();
    const gmVector3 given = control().LengthsOf(m_values);
    gmVector3 named = present;
    for (int axis = 0; axis < 3; ++axis) {
        if (const auto& value = m_values[static_cast<std::size_t>(axis)]) {
            named[axis] = value->isIncremental ? present[axis] + given[axis] : given[axis];
        }
    }
    const auto framed = [&](const gmVector3& point) {
        return coordinates.frame.IsEmpty() ? point : coordinates.frame.Apply(point);
    };
    gmVector3 shift = coordinates.shift.Get() + framed(present) - framed(named);
    const ZeroSystems& zeros = coordinates.zeros;
    const bool isTurned = !coordinates.frame.IsEmpty() || zeros.AngleOf(zeros.Current()) != 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        const bool isNamed = m_values[static_cast<std::size_t>(axis)].has_value();
        if (isNamed && !control().Status().IsAxisGiven(axis)) {
            control().Status().Note(BlockNote::kUnknownOrigin);
        }
        if (!std::isnan(shift[axis])) {
            continue;
        }
        if (isTurned) {
            return control().CheckKnown(present);
        }
        // Nobody knows where the tool is, nor where the zero then lies: it counts as the start's.
        shift[axis] = isNamed ? -coordinates.zeros.OriginOf(zeros.Current())[axis]
                              : coordinates.shift.Get()[axis];
        control().Status().Note(BlockNote::kUnknownOrigin);
    }
    coordinates.shift.Set(shift);
    coordinates.Settle();
    control().SetPosition(named);
    return 0;
}

void ShiftCommand::setPresentAngles() {
    if (!isAny(m_rotary)) {
        return;
    }
    RotaryAxes& axes = *control().rotary;
    gmVector3 shift = axes.shift.Get();
    for (std::size_t axis = 0; axis < m_rotary.size(); ++axis) {
        if (const auto& word = m_rotary.at(axis)) {
            const double present = axes.AngleOf(axis) - control().RotaryOffset(axis);
            const double named =
                word->value.isIncremental ? present + word->value.value : word->value.value;
            shift[static_cast<int>(axis)] += present - named;
        }
    }
    axes.shift.Set(shift);
}

void ShiftCommand::setLocal() {
    CoordinateSystem& coordinates = control().coordinates;
    const gmVector3 given = control().LengthsOf(m_values);
    const bool hasOneRegister = control().isStrict;
    gmVector3 shift = hasOneRegister ? coordinates.shift.Get() : coordinates.localShift;
    for (int axis = 0; axis < 3; ++axis) {
        if (m_values[static_cast<std::size_t>(axis)]) {
            shift[axis] = given[axis];
        }
    }
    control().Recoordinate([&] {
        if (hasOneRegister) {
            coordinates.shift.Set(shift);
        } else {
            coordinates.localShift = shift;
        }
    });
    if (isAny(m_rotary)) {
        setLocalAngles(hasOneRegister);
    }
}

void ShiftCommand::setLocalAngles(bool hasOneRegister) {
    RotaryAxes& axes = *control().rotary;
    gmVector3 shift = hasOneRegister ? axes.shift.Get() : axes.localShift;
    for (std::size_t axis = 0; axis < m_rotary.size(); ++axis) {
        if (const auto& word = m_rotary.at(axis)) {
            shift[static_cast<int>(axis)] = word->value.value;
        }
    }
    if (hasOneRegister) {
        axes.shift.Set(shift);
    } else {
        axes.localShift = shift;
    }
}

void ShiftCommand::cancel() {
    CoordinateSystem& coordinates = control().coordinates;
    const bool namesAxes = isAny(m_values) || isAny(m_rotary);
    gmVector3 shift;
    for (int axis = 0; axis < 3; ++axis) {
        const bool stays = namesAxes && !m_values[static_cast<std::size_t>(axis)];
        shift[axis] = stays ? coordinates.shift.Get()[axis] : 0.0;
    }
    control().Recoordinate([&] { coordinates.shift.Set(shift); });
    if (control().rotary != nullptr) {
        RotaryAxes& axes = *control().rotary;
        gmVector3 angles;
        for (std::size_t axis = 0; axis < m_rotary.size(); ++axis) {
            const auto i = static_cast<int>(axis);
            angles[i] = namesAxes && !m_rotary.at(axis) ? axes.shift.Get()[i] : 0.0;
        }
        axes.shift.Set(angles);
    }
}
