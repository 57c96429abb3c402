#pragma once

#include "commands/Movement.h"
#include "commands/RotaryAxes.h"
#include "kinematics/ToolPlace.h"

#include <optional>

/// One movement as a machine with rotary axes makes it: where the tool is at each fraction of it.
/// Lengths are those of the output.
class ToolWay {
public:
    /// `movement` is in positions given to the machine; `unit` is the length of a millimetre.
    /// `axes` must outlive the way.
    ToolWay(const RotaryAxes& axes, const Movement& movement, const Turning& turning, double unit);

    /// The place at a fraction from 0 to 1; that of 1 is exact.
    [[nodiscard]] ToolPlace PlaceAt(double fraction) const;
    [[nodiscard]] bool IsStartKnown() const;
    [[nodiscard]] bool IsEndKnown() const;
    /// Whether the tool runs straight and does not turn.
    [[nodiscard]] bool IsStraight() const noexcept { return !m_turns && !m_sweep; }
    /// Whether it surely leaves the straight way between its ends by no more than the tolerances:
    /// of the tip in mm, of the axis in degrees. Short movements, most of a surface, need no
    /// samples.
    [[nodiscard]] bool StaysWithin(double tolerance, double axisTolerance) const;
    /// The arc in the part's frame, where the movement is one and the tool does not turn.
    [[nodiscard]] std::optional<Sweep> Arc() const;
    /// How many degrees things turn on the way.
    [[nodiscard]] double Degrees() const;

private:
    [[nodiscard]] gmVector3 tipOf(const gmVector3& position, const MachinePose& pose) const;
    [[nodiscard]] gmVector3 positionAt(double fraction) const;

    const RotaryAxes& m_axes;
    gmVector3 m_start;
    gmVector3 m_end;
    std::optional<Sweep> m_sweep;
    Turning m_turning;
    double m_unit;
    bool m_turns;
    MachinePose m_last;
};
