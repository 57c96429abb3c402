#pragma once

#include "softCommon/CMathUtil/gmMat4.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// What a machine makes of positions while its rotary axes stand somewhere. Lengths are in mm. A
/// number that nobody knows is not a number, and reaches only those that depend on it.
class MachinePose {
public:
    /// `table` turns points of the machine into those of the part and is rigid; `head` is how far
    /// the tip lies from the position that is given to the machine.
    MachinePose(const gmMatrix4& table, const gmVector3& head, const gmVector3& toolAxis);

    /// The tip in the part's frame, of a position given to the machine, and the way back.
    [[nodiscard]] gmVector3 TipOf(const gmVector3& position) const;
    [[nodiscard]] gmVector3 PositionOf(const gmVector3& tip) const;
    /// A direction of movement in the part's frame.
    [[nodiscard]] gmVector3 Turn(const gmVector3& direction) const;
    /// The direction of the tool in the part's frame, length 1.
    [[nodiscard]] const gmVector3& ToolAxis() const noexcept { return m_toolAxis; }
    /// Whether positions given to the machine are the tips.
    [[nodiscard]] bool IsIdentity() const;

private:
    /// Where the table takes the origin.
    [[nodiscard]] gmVector3 origin() const;

    gmMatrix4 m_table;
    gmVector3 m_head;
    gmVector3 m_toolAxis;
};
