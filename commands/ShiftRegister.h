#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

/// The shift that a program lays over its zero system so that the present point becomes a given
/// one; it can be suspended and restored. Strict controls keep the local shift here as well.
/// Lengths are in the unit of the program.
class ShiftRegister {
public:
    [[nodiscard]] const gmVector3& Get() const noexcept { return m_shift; }
    /// A new shift; what was suspended is forgotten, in all axes.
    void Set(const gmVector3& shift) { m_kept = m_shift = shift; }
    void Suspend() { m_shift = gmVector3(); }
    void Restore() { m_shift = m_kept; }
    void Rescale(double factor) {
        m_shift *= factor;
        m_kept *= factor;
    }

private:
    gmVector3 m_shift;
    gmVector3 m_kept;
};
