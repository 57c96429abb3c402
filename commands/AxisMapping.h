#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

#include <array>

/// How the axes of the NC program become the axes of the output: which axis takes its value from
/// which (the assignment), and the factor of each axis. Without a setting nothing changes.
class AxisMapping {
public:
    enum Axis { kX = 0, kY = 1, kZ = 2 };

    /// Sets the factor of `axis`, and perhaps its assignment, from a text of the parameter file:
    /// the first character is the sign ("-" or anything else), a number behind it divides ("-2"
    /// gives -0.5: diameter programming), and "*" with an axis letter of either case assigns
    /// ("-2*Z"). A text of fewer than two characters sets the sign only. An assignment is only ever
    /// set, never cleared.
    void SetDivisor(Axis axis, const char* text) noexcept;

    /// Applies the assignment in its fixed order; every switch reads the values given.
    void Assign(gmVector3& point) const;
    /// Multiplies each component by the factor of its axis.
    void Scale(gmVector3& point) const;
    /// The number of an axis without its sign, by which a coordinate has to be multiplied to become
    /// a length: 0.5 where the axis is programmed in diameters.
    [[nodiscard]] double LengthFactor(Axis axis) const noexcept;
    /// Turns a point or direction in lengths into one of the output: assignment and signs alone.
    void Place(gmVector3& point) const;

private:
    void setSwitches(Axis axis, char letter) noexcept;

    std::array<double, 3> m_factors = {1.0, 1.0, 1.0};
    std::array<std::array<bool, 3>, 3> m_takesFrom = {}; // [target][source]
    bool m_assigns = false;                              // one of them is set
};
