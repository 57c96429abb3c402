#include "commands/ToolWay.h"

#include "commands/AxisKnowledge.h"
#include "kinematics/CurveSplitter.h"
#include "kinematics/greatArc.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <algorithm>
#include <cmath>

namespace {

bool isKnown(const ToolPlace& place) {
    return AxisKnowledge::IsKnown(place.tip) && AxisKnowledge::IsKnown(place.axis);
}

} // namespace

ToolWay::ToolWay(const RotaryAxes& axes, const Movement& movement, const Turning& turning,
                 double unit)
    : m_axes(axes), m_start(movement.start), m_end(movement.end), m_sweep(movement.sweep),
      m_turning(turning), m_unit(unit), m_turns(turning.Turns()),
      m_last(axes.chain.PoseAt(turning.to, axes.InForce())) {}

ToolPlace ToolWay::PlaceAt(double fraction) const {
    if (!m_turns || fraction >= 1.0) {
        return {.tip = tipOf(positionAt(fraction), m_last), .axis = m_turning.axisTo};
    }
    MachineChain::Angles angles;
    for (std::size_t i = 0; i < angles.size(); ++i) {
        const double from = m_turning.from.at(i);
        angles.at(i) = from + (m_turning.to.at(i) - from) * fraction;
    }
    const MachinePose pose = m_axes.chain.PoseAt(angles, m_axes.InForce());
    return {.tip = tipOf(positionAt(fraction), pose),
            .axis = m_turning.onGreatArc ? greatArc(m_turning.axisFrom, m_turning.axisTo, fraction)
                                         : pose.ToolAxis()};
}

gmVector3 ToolWay::tipOf(const gmVector3& position, const MachinePose& pose) const {
    return pose.TipOf(position * (1.0 / m_unit)) * m_unit;
}

gmVector3 ToolWay::positionAt(double fraction) const {
    if (fraction >= 1.0) {
        return m_end;
    }
    return m_sweep ? m_sweep->PointAt(m_sweep->angle * fraction)
                   : m_start + (m_end - m_start) * fraction;
}

bool ToolWay::IsStartKnown() const { return isKnown(PlaceAt(0.0)); }

bool ToolWay::IsEndKnown() const { return isKnown(PlaceAt(1.0)); }

// A curve c(u) leaves its chord by at most max |c''(u)| / 8. A point at distance r that turns by w
// in all while it runs a length of d has |c''| <= w w r + 2 w d; and an axis is never farther from
// its chord than it turns.
bool ToolWay::StaysWithin(double tolerance, double axisTolerance) const {
    if (m_sweep) {
        return false;
    }
    const double degrees = Degrees();
    const double reach = std::max(m_axes.chain.ReachOf(m_start * (1.0 / m_unit), m_axes.InForce()),
                                  m_axes.chain.ReachOf(m_end * (1.0 / m_unit), m_axes.InForce()));
    const double length = reach > 0.0 ? (m_end - m_start).length() / m_unit : 0.0;
    const double turn = gmRadians(degrees);
    return degrees <= axisTolerance * CurveSplitter::kMargin &&
           (turn * turn * reach + 2.0 * turn * length) / 8.0 <= tolerance * CurveSplitter::kMargin;
}

std::optional<Sweep> ToolWay::Arc() const {
    if (!m_sweep || m_turns) {
        return std::nullopt;
    }
    Sweep arc = *m_sweep;
    arc.centre = tipOf(arc.centre, m_last);
    for (gmVector3* const direction : {&arc.from, &arc.across, &arc.rise}) {
        *direction = m_last.Turn(*direction);
    }
    return arc;
}

double ToolWay::Degrees() const {
    double degrees = m_sweep ? m_sweep->angle * gmRADTODEG : 0.0;
    if (m_turning.onGreatArc) {
        degrees += angleBetween(m_turning.axisFrom, m_turning.axisTo) * gmRADTODEG;
    } else if (m_turning.byAngles) {
        degrees += std::abs(m_turning.to[0] - m_turning.from[0]) +
                   std::abs(m_turning.to[1] - m_turning.from[1]);
    }
    return degrees;
}
