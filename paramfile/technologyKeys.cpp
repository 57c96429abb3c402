#include "paramfile/keys.h"

#include "commands/CompensationCommand.h"
#include "commands/Control.h"
#include "commands/CoolantMist.h"
#include "commands/DwellCommand.h"
#include "commands/RegularCommand.h"
#include "commands/SpeedLimitCommand.h"
#include "commands/SpeedModeCommand.h"
#include "commands/StateCommand.h"
#include "commands/ThreadMovement.h"
#include "driver/DialectRules.h"
#include "driver/returnCodes.h"
#include "paramfile/ModelBuilder.h"
#include "paramfile/readReals.h"

#include <array>
#include <cmath>

namespace {

// A command that takes words of its block.
template<class Kind, ActionKind Action>
int code(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<Kind>(value, Action, builder.GetControl(), builder.Status());
}

// The argument tells the two sides, or the two modes, apart.
template<class Kind, ActionKind Action>
int sidedCode(ModelBuilder& builder, const KeyValue& value, int argument) {
    return builder.AddCode<Kind>(value, Action, builder.GetControl(), builder.Status(),
                                 argument == TRUE);
}

template<ActionKind Action, StateCommand::Change Change>
int change(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<StateCommand>(value, Action, builder.GetControl(), Change);
}

void stop(Control& control) { control.writer->WriteStop(false); }
void stopOptionally(Control& control) { control.writer->WriteStop(true); }
void endCompensation(Control& control) {
    control.isCompensated = false;
    control.writer->WriteCompensationOff();
}

int mist(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddMember<CoolantMist>(value, ActionKind::kCoolant, ModalGroup::kCoolant,
                                          builder.GetFactory());
}

int thread(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    (void)builder.GetControl();
    return builder.AddMovement<ThreadMovement>(value, &builder.Status(), builder.GetFactory());
}

template<WordList ControlWords::*List>
int address(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddAddress(value, builder.GetControl().words.*List);
}

int dwell(ModelBuilder& builder, const KeyValue& value, int argument) {
    const int failure = code<DwellCommand, ActionKind::kDwell>(builder, value, argument);
    if (failure == 0) {
        builder.Rules().passed.dwell.codes.emplace_back(value.text);
    }
    return failure;
}

template<WordList ControlWords::*List>
int dwellTime(ModelBuilder& builder, const KeyValue& value, int argument) {
    const int failure = address<List>(builder, value, argument);
    if (failure == 0) {
        builder.Rules().passed.dwell.addresses.emplace_back(value.text);
    }
    return failure;
}

int toolByWord(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    constexpr double kMostDigits = 9.0; // an int holds them
    std::array<double, 2> numbers{};
    if (!readReals(value.text, numbers)) {
        return kKeyValueUnknown;
    }
    const auto [digits, offsetDigits] = numbers;
    const bool areWhole = std::trunc(digits) == digits && std::trunc(offsetDigits) == offsetDigits;
    if (!areWhole || offsetDigits < 0.0 || offsetDigits >= digits || digits > kMostDigits) {
        return kKeyValueUnknown;
    }
    (void)builder.GetControl();
    builder.Commands().toolChange->ChangeByWord(static_cast<int>(digits),
                                                static_cast<int>(offsetDigits));
    return 0;
}

using enum ActionKind;
using enum KeyKind;
using enum Key::Form;
using Words = ControlWords;

constexpr Key kTechnologyKeys[] = {
    {"REV_DWELL", kWhole, kText, dwell, 0, true},
    {"REV_DWELL_SECONDS", kWhole, kAddress, dwellTime<&Words::dwellSeconds>, 0, true},
    {"REV_DWELL_MILLISECONDS", kWhole, kAddress, dwellTime<&Words::dwellMilliseconds>, 0, true},
    {"REV_DWELL_TURNS", kWhole, kAddress, dwellTime<&Words::dwellTurns>, 0, true},
    {"REV_STOP", kWhole, kText, change<kEnd, stop>, 0, true},
    {"REV_OPTIONAL_STOP", kWhole, kText, change<kEnd, stopOptionally>, 0, true},
    {"REV_COOLANT_MIST", kWhole, kText, mist, 0, true},
    {"REV_TOOL_BY_WORD", kWhole, kText, toolByWord},
    {"REV_CUTTING_SPEED", kWhole, kText, sidedCode<SpeedModeCommand, kSpeed>, TRUE, true},
    {"REV_SPINDLE_SPEED_MODE", kWhole, kText, sidedCode<SpeedModeCommand, kSpeed>, FALSE, true},
    {"REV_SPINDLE_LIMIT", kWhole, kText, code<SpeedLimitCommand, kSpeed>, 0, true},
    {"REV_SPINDLE_LIMIT_WORD", kWhole, kAddress, address<&Words::speedLimit>, 0, true},
    {"REV_CUTCOM_LEFT", kWhole, kText, sidedCode<CompensationCommand, kCompensation>, TRUE, true},
    {"REV_CUTCOM_RIGHT", kWhole, kText, sidedCode<CompensationCommand, kCompensation>, FALSE, true},
    {"REV_CUTCOM_OFF", kWhole, kText, change<kCompensation, endCompensation>, 0, true},
    {"REV_CUTCOM_REGISTER", kWhole, kAddress, address<&Words::compensationRegister>, 0, true},
    {"REV_THREAD", kWhole, kText, thread, 0, true},
    {"REV_THREAD_PITCH", kWhole, kAddress, address<&Words::threadPitch>, 0, true},
};

} // namespace

std::span<const Key> technologyKeys() noexcept { return kTechnologyKeys; }
