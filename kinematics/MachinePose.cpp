#include "kinematics/MachinePose.h"

#include <cmath>

namespace {

constexpr double kNoise = 1e-15; // what computing leaves of a 0 is none

double product(double factor, double value) {
    return std::abs(factor) < kNoise ? 0.0 : factor * value;
}

} // namespace

MachinePose::MachinePose(const gmMatrix4& table, const gmVector3& head, const gmVector3& toolAxis)
    : m_table(table), m_head(head), m_toolAxis(toolAxis) {}

gmVector3 MachinePose::TipOf(const gmVector3& position) const {
    return Turn(position + m_head) + origin();
}

gmVector3 MachinePose::PositionOf(const gmVector3& tip) const {
    const gmVector3 turned = tip - origin();
    gmVector3 result;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            result[row] += product(m_table[row][column], turned[column]);
        }
    }
    return result - m_head;
}

gmVector3 MachinePose::Turn(const gmVector3& direction) const {
    gmVector3 result;
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            result[column] += product(m_table[row][column], direction[row]);
        }
    }
    return result;
}

gmVector3 MachinePose::origin() const { return {m_table[3][0], m_table[3][1], m_table[3][2]}; }

bool MachinePose::IsIdentity() const { return m_table == EMatrix4 && m_head.length() == 0.0; }
