#pragma once

#include "softCommon/CMathUtil/gmMat4.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// Where the coordinates of the program lie in the zero that was in force at the start. Points are
/// lengths in the unit of the program (no diameters).
class CoordinateSystem {
public:
    /// False as long as both are the same.
    [[nodiscard]] bool IsChanged() const noexcept { return m_isChanged; }
    [[nodiscard]] gmVector3 ToStart(const gmVector3& point) const;
    [[nodiscard]] gmVector3 FromStart(const gmVector3& point) const;
    /// The same for a direction with a length, which knows no origin.
    [[nodiscard]] gmVector3 DirectionToStart(const gmVector3& direction) const;
    /// All lengths kept here become longer by the factor, as the unit of the program changes.
    void Rescale(double factor);

private:
    bool m_isChanged = false;
};
