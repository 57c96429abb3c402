#pragma once

#include "commands/AxisWords.h"
#include "commands/Plane.h"
#include "commands/WordList.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <optional>

class MachineStatus;

/// Points of the plane by radius and angle about a pole. They are given by words of their own, or,
/// while the mode is on, by the axis words of the plane: the first is the radius then, and the
/// second the angle. A word left out keeps its number. Points are lengths.
class PolarCoordinates {
public:
    WordList radiusWords;
    WordList angleWords;

    /// The mode, in which an absolute radius counts from the zero of the workpiece.
    void Switch(bool isOn) noexcept;
    void SetPole(const gmVector3& pole) noexcept { m_pole = pole; }
    [[nodiscard]] const gmVector3& Pole() const noexcept { return m_pole; }

    /// Takes the words of the block. Tells whether there was one.
    bool TakeWords(char* line, MachineStatus& status);
    void ForgetWords() noexcept;
    [[nodiscard]] bool HasWords() const noexcept { return m_radiusWord || m_angleWord; }
    /// Whether the block's point is by radius and angle.
    [[nodiscard]] bool IsInUse() const noexcept { return m_isOn || HasWords(); }

    /// The point that the words taken or the axis words of the plane ask for; its coordinate along
    /// the normal stays. The latter are removed from `values`. `point` is the present one.
    [[nodiscard]] gmVector3 Resolve(AxisValues& values, Plane plane, bool isIncrementalMode,
                                    const gmVector3& point);
    /// The words taken; they are consumed. Radius or angle left out is 0.
    struct Direction {
        double radius = 0.0;
        double angle = 0.0; ///< degrees
    };
    [[nodiscard]] Direction TakeDirection() noexcept;
    /// How far a direction leads away from a pole.
    [[nodiscard]] static gmVector3 OffsetOf(const Direction& direction, Plane plane);

    void Rescale(double factor);

private:
    bool m_isOn = false;
    std::optional<AxisValue> m_radiusWord; // of the block at hand
    std::optional<AxisValue> m_angleWord;
    gmVector3 m_pole;
    std::optional<double> m_radius; // the last ones
    std::optional<double> m_angle;
};
