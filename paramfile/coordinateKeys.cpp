#include "paramfile/keys.h"

#include "commands/Control.h"
#include "commands/FrameCommand.h"
#include "commands/MachineBlockCommand.h"
#include "commands/MirrorCommand.h"
#include "commands/PoleCommand.h"
#include "commands/ReferencePointCommand.h"
#include "commands/ShiftCommand.h"
#include "commands/StateCommand.h"
#include "commands/TableCommand.h"
#include "commands/ZeroSystemCommand.h"
#include "driver/returnCodes.h"
#include "paramfile/ModelBuilder.h"
#include "paramfile/readReals.h"

#include <array>
#include <string_view>

namespace {

bool readPoint(const char* text, gmVector3& point) {
    std::array<double, 3> numbers{};
    if (!readReals(text, numbers)) {
        return false;
    }
    point.assign(numbers[0], numbers[1], numbers[2]);
    return true;
}

int zeroSystem(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    ZeroSystems& zeros = control.coordinates.zeros;
    zeros.Add();
    return builder.AddCode<ZeroSystemCommand>(value, ActionKind::kZeroSystem, control,
                                              zeros.Count() - 1);
}

int zeroOrigin(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    gmVector3 origin;
    return readPoint(value.text, origin) &&
                   builder.GetStages().coordinates.zeros.SetFileOrigin(origin)
               ? 0
               : int{kKeyValueUnknown};
}

// One group with the codes of RTCP, which any of it ends.
template<bool IsOn>
void useToolLength(Control& control) {
    if (control.rotary != nullptr && control.rotary->isRtcpOn) {
        control.rotary->SwitchRtcp(control, false, false);
    }
    control.hasToolLength = IsOn;
}

template<bool IsOn>
int toolLength(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<StateCommand>(value, ActionKind::kShift, builder.GetStages(),
                                         useToolLength<IsOn>);
}

int machineZero(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    gmVector3 place;
    if (!readPoint(value.text, place)) {
        return kKeyValueUnknown;
    }
    builder.GetStages().coordinates.zeros.SetMachineZero(place);
    return 0;
}

int table(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<TableCommand>(value, ActionKind::kShift, builder.GetStages());
}

template<ShiftCommand::Kind Kind>
int shift(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<ShiftCommand>(value, ActionKind::kShift, builder.GetStages(), Kind);
}

int machineBlock(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<MachineBlockCommand>(value, ActionKind::kShift, builder.GetStages());
}

int referencePoint(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.SetReferencePoints();
    return builder.AddCode<ReferencePointCommand>(value, ActionKind::kShift, builder.GetStages(),
                                                  *builder.Commands().rapid);
}

// Older than reference points: it counts only where there are some.
int home(ModelBuilder& builder, const KeyValue& value, int argument) {
    builder.SetHome(argument, value.text);
    return 0;
}

/// The argument tells the adding form.
template<FrameKind Kind>
int frame(ModelBuilder& builder, const KeyValue& value, int argument) {
    return builder.AddCode<FrameCommand>(value, ActionKind::kShift, builder.GetStages(), Kind,
                                         argument != 0);
}

template<bool IsOn>
int mirror(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<MirrorCommand>(value, ActionKind::kShift, builder.GetStages(), IsOn);
}

template<PoleCommand::Base Base>
int pole(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<PoleCommand>(value, ActionKind::kShift, builder.GetStages(), Base);
}

// Codes without words of their own.

template<ActionKind Kind, auto Change>
int change(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<StateCommand>(value, Kind, builder.GetStages(), +Change);
}

// Rotary axes keep their places, too.
void changeAngles(Control& control, auto use) {
    if (control.rotary != nullptr) {
        use(*control.rotary);
    }
}

constexpr auto kSuspendShift = [](Control& control) {
    changeAngles(control, [](RotaryAxes& axes) { axes.shift.Suspend(); });
    control.Recoordinate([&] { control.coordinates.shift.Suspend(); });
};

constexpr auto kRestoreShift = [](Control& control) {
    changeAngles(control, [](RotaryAxes& axes) { axes.shift.Restore(); });
    control.Recoordinate([&] { control.coordinates.shift.Restore(); });
};

constexpr auto kClearFrame = [](Control& control) {
    changeAngles(control, [](RotaryAxes& axes) { axes.frameShift = gmVector3(); });
    control.Recoordinate([&] { control.coordinates.frame.Clear(); });
};

template<FrameKind Kind>
void removeFrame(Control& control) {
    if (Kind == FrameKind::kShift) {
        changeAngles(control, [](RotaryAxes& axes) { axes.frameShift = gmVector3(); });
    }
    control.Recoordinate([&] { control.coordinates.frame.Remove(Kind); });
}

template<DiameterMode::Kind Kind>
void setDiameter(Control& control) {
    const gmVector3 place = control.Position();
    control.diameter.Set(Kind);
    control.SetPosition(place);
}

template<bool IsOn>
void switchPolar(Control& control) {
    control.polar.Switch(IsOn);
}

template<WordList ControlWords::*List>
int address(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddAddress(value, builder.GetStages().words.*List);
}

template<WordList PolarCoordinates::*List>
int polarAddress(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddAddress(value, builder.GetStages().polar.*List);
}

int thousandths(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    builder.GetStages().hasThousandths = text == "1";
    return text == "1" || text == "0" ? 0 : int{kKeyValueUnknown};
}

using enum KeyKind;
using enum Key::Form;
using enum FrameKind;
using Words = ControlWords;
using Shift = ShiftCommand::Kind;
using Base = PoleCommand::Base;
using Diameter = DiameterMode::Kind;

constexpr Key kCoordinateKeys[] = {
    {"REV_ZERO_SYSTEM", kWhole, kText, zeroSystem, 0, true},
    {"REV_ZERO_ORIGIN", kWhole, kText, zeroOrigin, 0, true},
    {"REV_TABLE", kWhole, kText, table, 0, true},
    {"REV_TABLE_KIND", kWhole, kAddress, address<&Words::tableKind>, 0, true},
    {"REV_TABLE_NUMBER", kWhole, kAddress, address<&Words::tableNumber>, 0, true},
    {"REV_TABLE_ANGLE", kWhole, kAddress, address<&Words::tableAngle>, 0, true},
    {"REV_SHIFT_SET", kWhole, kText, shift<Shift::kSet>, 0, true},
    {"REV_SHIFT_LOCAL", kWhole, kText, shift<Shift::kLocal>, 0, true},
    {"REV_SHIFT_CANCEL", kWhole, kText, shift<Shift::kCancel>, 0, true},
    {"REV_SHIFT_SUSPEND", kWhole, kText, change<ActionKind::kShift, kSuspendShift>, 0, true},
    {"REV_SHIFT_RESTORE", kWhole, kText, change<ActionKind::kShift, kRestoreShift>, 0, true},
    {"REV_MACHINE_COORDINATES", kWhole, kText, machineBlock, 0, true},
    {"REV_MACHINE_ZERO", kWhole, kText, machineZero},
    {"REV_TOOL_LENGTH_ON", kWhole, kText, toolLength<true>, 0, true},
    {"REV_TOOL_LENGTH_OFF", kWhole, kText, toolLength<false>, 0, true},
    {"REV_REFERENCE_POINT", kWhole, kText, referencePoint, 0, true},
    {"REV_REFERENCE_POINT_2", kWhole, kText, referencePoint, 0, true},
    {"MFG_X_HOME_POS", kPassing, kText, home, 0},
    {"MFG_Y_HOME_POS", kPassing, kText, home, 1},
    {"MFG_Z_HOME_POS", kPassing, kText, home, 2},
    {"REV_FRAME_SHIFT", kWhole, kText, frame<FrameKind::kShift>, 0, true},
    {"REV_FRAME_SHIFT_ADD", kWhole, kText, frame<FrameKind::kShift>, 1, true},
    {"REV_FRAME_SHIFT_CANCEL", kWhole, kText,
     change<ActionKind::kShift, removeFrame<FrameKind::kShift>>, 0, true},
    {"REV_FRAME_ROTATE", kWhole, kText, frame<kRotate>, 0, true},
    {"REV_FRAME_ROTATE_ADD", kWhole, kText, frame<kRotate>, 1, true},
    {"REV_FRAME_ROTATE_CANCEL", kWhole, kText, change<ActionKind::kShift, removeFrame<kRotate>>, 0,
     true},
    {"REV_FRAME_SCALE", kWhole, kText, frame<kScale>, 0, true},
    {"REV_FRAME_SCALE_ADD", kWhole, kText, frame<kScale>, 1, true},
    {"REV_FRAME_SCALE_CANCEL", kWhole, kText, change<ActionKind::kShift, removeFrame<kScale>>, 0,
     true},
    {"REV_FRAME_MIRROR", kWhole, kText, frame<kMirror>, 0, true},
    {"REV_FRAME_MIRROR_ADD", kWhole, kText, frame<kMirror>, 1, true},
    {"REV_MIRROR_AT", kWhole, kText, mirror<true>, 0, true},
    {"REV_MIRROR_CANCEL", kWhole, kText, mirror<false>, 0, true},
    {"REV_FRAME_CANCEL", kWhole, kText, change<ActionKind::kShift, kClearFrame>, 0, true},
    {"REV_FRAME_ANGLE", kWhole, kAddress, address<&Words::frameAngle>, 0, true},
    {"REV_FRAME_FACTOR", kWhole, kAddress, address<&Words::frameFactor>, 0, true},
    {"REV_FRAME_FACTOR_THOUSANDTHS", kWhole, kText, thousandths},
    {"REV_DIAMETER_ON", kWhole, kText, change<ActionKind::kShift, setDiameter<Diameter::kOn>>, 0,
     true},
    {"REV_DIAMETER_OFF", kWhole, kText, change<ActionKind::kShift, setDiameter<Diameter::kOff>>, 0,
     true},
    {"REV_DIAMETER_ABSOLUTE_ONLY", kWhole, kText,
     change<ActionKind::kShift, setDiameter<Diameter::kAbsoluteOnly>>, 0, true},
    {"REV_POLAR_ON", kWhole, kText, change<ActionKind::kShift, switchPolar<true>>, 0, true},
    {"REV_POLAR_OFF", kWhole, kText, change<ActionKind::kShift, switchPolar<false>>, 0, true},
    {"REV_POLAR_RADIUS", kWhole, kAddress, polarAddress<&PolarCoordinates::radiusWords>, 0, true},
    {"REV_POLAR_ANGLE", kWhole, kAddress, polarAddress<&PolarCoordinates::angleWords>, 0, true},
    {"REV_POLE_AT_POSITION", kWhole, kText, pole<Base::kPosition>, 0, true},
    {"REV_POLE_AT_ZERO", kWhole, kText, pole<Base::kZero>, 0, true},
    {"REV_POLE_AT_POLE", kWhole, kText, pole<Base::kPole>, 0, true},
};

} // namespace

std::span<const Key> coordinateKeys() noexcept { return kCoordinateKeys; }
