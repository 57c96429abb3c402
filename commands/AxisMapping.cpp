#include "commands/AxisMapping.h"

#include "softCommon/CMathUtil/gmUtil.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/numberText.h"

#include <cmath>
#include <cstring>

namespace {

using Axis = AxisMapping::Axis;

struct Assignment {
    Axis target;
    Axis source;
};

// The later switch wins where two have the same target.
constexpr Assignment kOrder[] = {
    {AxisMapping::kY, AxisMapping::kX}, {AxisMapping::kZ, AxisMapping::kX},
    {AxisMapping::kX, AxisMapping::kY}, {AxisMapping::kZ, AxisMapping::kY},
    {AxisMapping::kX, AxisMapping::kZ}, {AxisMapping::kY, AxisMapping::kZ},
};

// The letters of an axis in the order in which they are tried. A letter sets its own switch and
// falls through to those behind it. That is wanted: dialects rely on it.
constexpr char kLetters[3][2] = {{'y', 'z'}, {'x', 'z'}, {'x', 'y'}};

} // namespace

void AxisMapping::SetDivisor(Axis axis, const char* text) noexcept {
    const double sign = text[0] == '-' ? -1.0 : 1.0;
    m_factors[axis] = sign;
    if (text[0] == '\0' || text[1] == '\0') {
        return;
    }
    const double divisor = readReal(text + 1);
    if (divisor != 0.0) {
        m_factors[axis] = gmInv(divisor) * sign;
    }
    if (const char* const star = std::strchr(text + 1, '*')) {
        setSwitches(axis, toLowerByte(star[1]));
    }
}

void AxisMapping::setSwitches(Axis axis, char letter) noexcept {
    bool isSet = false;
    for (const char candidate : kLetters[axis]) {
        isSet = isSet || candidate == letter;
        if (isSet) {
            m_takesFrom[axis][static_cast<std::size_t>(candidate - 'x')] = true;
            m_assigns = true;
        }
    }
}

void AxisMapping::Assign(gmVector3& point) const {
    if (!m_assigns) {
        return;
    }
    const gmVector3 given = point;
    for (const auto& [target, source] : kOrder) {
        if (m_takesFrom[target][source]) {
            point[target] = given[source];
        }
    }
}

void AxisMapping::Scale(gmVector3& point) const {
    point.assign(point[0] * m_factors[0], point[1] * m_factors[1], point[2] * m_factors[2]);
}

double AxisMapping::LengthFactor(Axis axis) const noexcept {
    const double factor = std::abs(m_factors[axis]);
    return factor > 0.0 && std::isfinite(factor) ? factor : 1.0;
}

void AxisMapping::Place(gmVector3& point) const {
    for (const Axis axis : {kX, kY, kZ}) {
        point[axis] /= LengthFactor(axis);
    }
    Assign(point);
    Scale(point);
}
