#pragma once

#include "commands/Frame.h"
#include "commands/ShiftRegister.h"
#include "commands/ZeroSystems.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// Where the coordinates of the program lie in the zero that was in force at the start. A point of
/// the program passes its frame, then the shift, then the rotation and the origin of the zero
/// system. Points are lengths in the unit of the program (no diameters). A coordinate that nobody
/// knows is not a number; it makes those unknown that depend on it, and no others.
class CoordinateSystem {
public:
    // The parts. Whoever changes one calls Settle.
    ZeroSystems zeros;
    ShiftRegister shift;
    gmVector3 localShift; ///< where a control keeps that apart
    Frame frame;

    /// Brings up to date what follows from the parts.
    void Settle();

    /// False as long as both are the same.
    [[nodiscard]] bool IsChanged() const noexcept { return m_isChanged; }
    [[nodiscard]] gmVector3 ToStart(const gmVector3& point) const;
    [[nodiscard]] gmVector3 FromStart(const gmVector3& point) const;
    /// The same for a direction with a length, which knows no origin.
    [[nodiscard]] gmVector3 DirectionToStart(const gmVector3& direction) const;
    /// Both shifts.
    [[nodiscard]] gmVector3 WholeShift() const { return shift.Get() + localShift; }
    /// All lengths kept here become longer by the factor, as the unit of the program changes.
    void Rescale(double factor);

    /// Turns a point or direction about Z, degrees.
    [[nodiscard]] static gmVector3 Turned(const gmVector3& v, double angle);

private:
    double m_angle = 0.0; // of the zero system in force
    gmVector3 m_origin;
    gmVector3 m_offset; // shift and origin, where nothing turns
    bool m_isChanged = false;
};
