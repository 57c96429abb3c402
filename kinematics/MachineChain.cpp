#include "kinematics/MachineChain.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace {

// Of points as rows, so that of a product the first factor acts first.
gmMatrix4 about(const gmVector3& centre, const gmMatrix4& turn) {
    return gmMatrix4::translate(-centre[0], -centre[1], -centre[2]) * turn *
           gmMatrix4::translate(centre[0], centre[1], centre[2]);
}

double turnOf(const RotaryAxis& axis, double angle) noexcept {
    return axis.isReversed ? -angle : angle;
}

} // namespace

bool MachineChain::HasHead() const noexcept {
    return std::ranges::any_of(std::span(m_axes).first(m_count), &RotaryAxis::isOnHead);
}

bool MachineChain::HasTable() const noexcept {
    return !std::ranges::all_of(std::span(m_axes).first(m_count), &RotaryAxis::isOnHead);
}

// Each axis on the way takes a point at most twice as far out as its own centre is.
double MachineChain::ReachOf(const gmVector3& position, const Compensation& compensation) const {
    double reach = 0.0;
    for (const RotaryAxis& axis : std::span(m_axes).first(m_count)) {
        if (!(axis.isOnHead ? compensation.head : compensation.table)) {
            const double tool = axis.isOnHead ? std::abs(m_toolLength) : 0.0;
            reach += 2.0 * (axis.centre.length() + tool);
        }
    }
    const bool isCompensated =
        (compensation.head || !HasHead()) && (compensation.table || !HasTable());
    return isCompensated ? 0.0 : reach + position.length();
}

// Heads act before tables, what is carried by a head before its carrier, and the carrier of a table
// before what it carries: from the tool to the part.
MachinePose MachineChain::PoseAt(const Angles& angles, const Compensation& compensation) const {
    gmMatrix4 table = EMatrix4;
    gmMatrix4 head = EMatrix4;
    gmVector3 tool = m_toolAxis;
    std::optional<gmVector3> pivot;
    for (const bool isOnHead : {true, false}) {
        for (const bool isFirst : {true, false}) {
            const bool isCarrier = isFirst != isOnHead;
            const std::size_t index = isCarrier ? m_carrier : kMostAxes - 1 - m_carrier;
            if (index >= m_count || m_axes.at(index).isOnHead != isOnHead) {
                continue;
            }
            const RotaryAxis& axis = m_axes.at(index);
            const gmMatrix4 turn =
                gmMatrix4::rotate(turnOf(axis, angles.at(index)), axis.direction);
            tool = turn.transform(tool);
            if (isOnHead && !compensation.head) {
                const gmVector3 centre = axis.centre + m_toolAxis * m_toolLength;
                pivot = pivot.value_or(centre);
                head *= about(centre, turn);
            } else if (!isOnHead && !compensation.table) {
                table *= about(axis.centre, turn);
            }
        }
    }
    gmVector3 offset = head.transform(gmVector3());
    if (m_givesPivot) {
        offset -= pivot.value_or(gmVector3());
    }
    return {table, offset, tool};
}
