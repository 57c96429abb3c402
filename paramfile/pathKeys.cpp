#include "paramfile/keys.h"

#include "commands/Control.h"
#include "commands/PlaneCommand.h"
#include "commands/StateCommand.h"
#include "driver/returnCodes.h"
#include "paramfile/ModelBuilder.h"
#include "paramfile/readReals.h"

#include <array>
#include <string_view>

namespace {

int executionOrder(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    if (text != "OFF_FIRST" && text != "OFF_LAST") {
        return kKeyValueUnknown;
    }
    const bool isOffFirst = text == "OFF_FIRST";
    Control& control = builder.GetControl();
    control.actions.SetOrder(isOffFirst ? ExecutionOrder::kOffFirst : ExecutionOrder::kOffLast);
    control.isStrict = isOffFirst; // that is the order of the family which does
    return 0;
}

template<Plane Value>
int plane(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    control.computesArcs = true;
    return builder.AddCode<PlaneCommand>(value, ActionKind::kPlane, control, Value);
}

template<bool IsAbsolute>
int centreMode(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<StateCommand>(value, ActionKind::kCentreMode, builder.GetStages(),
                                         [](Control& c) { c.centresAreAbsolute = IsAbsolute; });
}

template<bool IsInch>
int units(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    control.tellsUnits = true;
    return builder.AddCode<StateCommand>(
        value, ActionKind::kUnits, control, [](Control& c) { c.SwitchUnits(IsInch); },
        CommandRank::kSetsUnits);
}

// Such a word means nothing unless arcs are computed.
template<WordList ControlWords::*List>
int arcAddress(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    control.computesArcs = true;
    return builder.AddAddress(value, control.words.*List);
}

int centreIsRadius(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    builder.GetStages().centreIsRadius = text == "1";
    return text == "1" || text == "0" ? 0 : int{kKeyValueUnknown};
}

int circleTolerance(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    std::array<double, 3> numbers{};
    if (!readReals(value.text, numbers) || numbers[0] < 0.0 || numbers[1] < 0.0 ||
        numbers[2] < numbers[0]) {
        return kKeyValueUnknown;
    }
    ArcTolerance& tolerance = builder.GetStages().arcTolerance;
    tolerance.low = numbers[0];
    tolerance.fraction = numbers[1];
    tolerance.high = numbers[2];
    return 0;
}

int radiusTolerance(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::optional<double> number = readOneReal(value.text);
    if (!number || *number < 0.0) {
        return kKeyValueUnknown;
    }
    builder.GetStages().arcTolerance.radius = *number;
    return 0;
}

// These two are older than planes, and count only where there are some.

int linearTolerance(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.SetLinearTolerance(value.text);
    return 0;
}

int splitCircle(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.SetSplitCircle(value.text[0] == '1');
    return 0;
}

using enum KeyKind;
using enum Key::Form;
using Words = ControlWords;

constexpr Key kPathKeys[] = {
    {"REV_EXECUTION_ORDER", kWhole, kText, executionOrder},
    {"REV_PLANE_XY", kWhole, kText, plane<Plane::kXY>, 0, true},
    {"REV_PLANE_ZX", kWhole, kText, plane<Plane::kZX>, 0, true},
    {"REV_PLANE_YZ", kWhole, kText, plane<Plane::kYZ>, 0, true},
    {"REV_CIRCLE_RADIUS", kWhole, kAddress, arcAddress<&Words::radius>, 0, true},
    {"REV_TURNS_BEGUN", kWhole, kAddress, arcAddress<&Words::turnsBegun>, 0, true},
    {"REV_TURNS_MORE", kWhole, kAddress, arcAddress<&Words::turnsMore>, 0, true},
    {"REV_CENTRE_ABSOLUTE", kWhole, kText, centreMode<true>, 0, true},
    {"REV_CENTRE_RELATIVE", kWhole, kText, centreMode<false>, 0, true},
    {"REV_CENTRE_IS_RADIUS", kWhole, kText, centreIsRadius},
    {"REV_CIRCLE_TOLERANCE", kWhole, kText, circleTolerance},
    {"REV_RADIUS_TOLERANCE", kWhole, kText, radiusTolerance},
    {"REV_INCH", kWhole, kText, units<true>, 0, true},
    {"REV_METRIC", kWhole, kText, units<false>, 0, true},
    {"LINEAR_TOLERANCE", kPassing, kText, linearTolerance},
    {"SPLIT_CIRCLE", kPassing, kText, splitCircle},
};

} // namespace

std::span<const Key> pathKeys() noexcept { return kPathKeys; }
