#pragma once

#include "kinematics/Compensation.h"
#include "kinematics/MachinePose.h"
#include "kinematics/RotaryAxis.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>
#include <cstddef>

/// The rotary axes of a machine, at most two, on table and head, and what they do to tip and tool.
/// Of two axes on the same side one carries the other: the part lies on the carried axis of a
/// table, the tool sits in that of a head. Angles are in degrees, lengths in mm.
class MachineChain {
public:
    static constexpr std::size_t kMostAxes = 2;
    using Angles = std::array<double, kMostAxes>; ///< of an axis that is not there: any

    /// The direction of the tool with all axes at zero, length 1; (0, 0, 1) unless set.
    void SetToolAxis(const gmVector3& direction) { m_toolAxis = direction; }
    /// One more axis, at most kMostAxes.
    void Add(const RotaryAxis& axis) { m_axes.at(m_count++) = axis; }
    /// Which axis carries the other one; the first unless set.
    void SetCarrier(std::size_t index) noexcept { m_carrier = index; }
    /// The length of the tool, which adds to the centres of heads.
    void SetToolLength(double length) noexcept { m_toolLength = length; }
    /// Positions are those of the centre of the head axis nearest the tool, and not of the tip.
    void GivePivot(bool gives) noexcept { m_givesPivot = gives; }

    [[nodiscard]] std::size_t Count() const noexcept { return m_count; }
    [[nodiscard]] bool HasHead() const noexcept;
    [[nodiscard]] bool HasTable() const noexcept;
    [[nodiscard]] const gmVector3& ToolAxis() const noexcept { return m_toolAxis; }

    /// How far from the centres that turn it a position of the machine is at most, in mm; 0 where
    /// the control moves the linear axes along with all rotary ones.
    [[nodiscard]] double ReachOf(const gmVector3& position, const Compensation& compensation) const;
    [[nodiscard]] MachinePose PoseAt(const Angles& angles, const Compensation& compensation) const;

private:
    std::array<RotaryAxis, kMostAxes> m_axes;
    std::size_t m_count = 0;
    std::size_t m_carrier = 0;
    gmVector3 m_toolAxis = gmVector3(0.0, 0.0, 1.0);
    double m_toolLength = 0.0;
    bool m_givesPivot = false;
};
