#pragma once

#include "commands/Movement.h"
#include "commands/RotaryAxes.h"

class AxisKnowledge;
class Control;
class ToolWay;

/// The stage of a machine with rotary axes: positions of the machine become places of the tool in
/// the part's frame. The axes of the machine move evenly, so the tip runs on a curve, into which
/// points are put as dense as the tolerances ask for.
class ToolStage {
public:
    /// Writes the movement, which is in positions given to the machine; `programmed` is its end in
    /// coordinates of the program. Returns 0 or the code of a refusal.
    int Pass(Control& control, AxisKnowledge& knowledge, Movement& movement, const Turning& turning,
             const gmVector3& programmed);

private:
    int write(Control& control, Movement& movement, const ToolWay& way);
    static int writeArc(Control& control, Movement& movement, const Sweep& arc);
    static int writePoints(Control& control, Movement& movement, const ToolWay& way, bool hasStart);
    void noteFeed(Control& control, const Movement& movement, const Turning& turning);

    bool m_hasPlace = false; // a place of the tool was written
    bool m_isFeedNoted = false;
};
