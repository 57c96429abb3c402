#include "commands/ToolStage.h"

#include "commands/AxisKnowledge.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "commands/ToolWay.h"
#include "commands/withoutNoise.h"
#include "driver/returnCodes.h"
#include "kinematics/CurveSplitter.h"

#include <utility>
#include <vector>

int ToolStage::Pass(Control& control, AxisKnowledge& knowledge, Movement& movement,
                    const Turning& turning, const gmVector3& programmed) {
    const ToolWay way(*control.rotary, movement, turning, control.units.FromMillimetres());
    if (!way.IsEndKnown()) {
        if (movement.rapid == TRUE) {
            knowledge.Hold(movement);
            return 0;
        }
        const int code = control.CheckKnown(programmed);
        return code != 0 ? code
                         : control.Refuse(kAxisUnknown, "nobody knows how the rotary axes stand "
                                                        "since a tool vector");
    }
    if (movement.sweep) {
        if (const int code = control.CheckKnown(movement.start); code != 0) {
            return code;
        }
    }
    knowledge.Release(movement);
    movement.toolAxis.reset(); // every point has its own
    control.WriteUnits();
    const gmVector3 tip = way.PlaceAt(1.0).tip;
    control.Status().InitBasicPosition(tip[0], tip[1], tip[2]);
    control.Status().KeepMovement(&movement);
    noteFeed(control, movement, turning);
    return write(control, movement, way);
}

// A feed along the path says nothing of an axis that turns alone.
void ToolStage::noteFeed(Control& control, const Movement& movement, const Turning& turning) {
    if (movement.rapid != TRUE && movement.needsFeed && turning.byAngles && !movement.sweep &&
        movement.start == movement.end && !control.IsInverseTime() &&
        !std::exchange(m_isFeedNoted, true)) {
        control.Status().Note(BlockNote::kRotaryFeed);
    }
}

int ToolStage::write(Control& control, Movement& movement, const ToolWay& way) {
    const bool isFirst = !std::exchange(m_hasPlace, true);
    if (isFirst) {
        control.writer->WriteMultiAxis();
    }
    if (const std::optional<Sweep> arc = way.Arc()) {
        control.path.SetArcNormal(way.PlaceAt(1.0).axis);
        if (control.path.IsStatement(*arc)) {
            movement.start = withoutNoise(way.PlaceAt(0.0).tip);
            movement.end = withoutNoise(way.PlaceAt(1.0).tip);
            return writeArc(control, movement, *arc);
        }
    }
    const bool hasStart = way.IsStartKnown() && (!isFirst || movement.sweep);
    return writePoints(control, movement, way, hasStart);
}

int ToolStage::writeArc(Control& control, Movement& movement, const Sweep& arc) {
    movement.sweep = arc;
    if (const int code = control.CheckParts(arc); code != 0) {
        return code;
    }
    if (const int code = control.WriteInverseFeed(movement, arc.Length()); code != 0) {
        return code;
    }
    control.path.Write(movement, control.units.FromMillimetres());
    return 0;
}

int ToolStage::writePoints(Control& control, Movement& movement, const ToolWay& way,
                           bool hasStart) {
    std::vector<double> fractions = {1.0};
    if (hasStart && !way.IsStraight()) {
        constexpr double kDegreesOfPart = 90.0; // what turns and shows nothing takes its time
        if (const int code = control.AddParts(way.Degrees() / kDegreesOfPart); code != 0) {
            return code;
        }
        const double tolerance = control.path.Tolerance();
        const double axisTolerance = control.rotary->axisTolerance;
        if (!way.StaysWithin(tolerance, axisTolerance)) {
            const ToolCurve curve = [&way](double fraction) { return way.PlaceAt(fraction); };
            fractions = CurveSplitter(curve, tolerance * control.units.FromMillimetres(),
                                      axisTolerance, way.Degrees())
                            .Split();
        }
        if (fractions.empty()) {
            return control.Refuse(kBlockRefused, "the movement takes too many points");
        }
        if (const int code = control.AddParts(static_cast<double>(fractions.size()) - 1.0);
            code != 0) {
            return code;
        }
    }
    std::vector<ToolPlace> places;
    places.reserve(fractions.size());
    double length = 0.0;
    gmVector3 last = hasStart ? way.PlaceAt(0.0).tip : way.PlaceAt(1.0).tip;
    for (const double fraction : fractions) {
        const ToolPlace& place = places.emplace_back(way.PlaceAt(fraction));
        length += (place.tip - last).length();
        last = place.tip;
    }
    if (const int code = control.WriteInverseFeed(movement, length); code != 0) {
        return code;
    }
    movement.sweep.reset();
    for (const ToolPlace& place : places) {
        movement.end = withoutNoise(place.tip);
        movement.axis = place.axis;
        control.path.Write(movement, 1.0);
    }
    movement.axis.reset();
    return 0;
}
