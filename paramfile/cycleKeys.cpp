#include "paramfile/keys.h"

#include "commands/Control.h"
#include "commands/CycleCall.h"
#include "commands/CycleEnd.h"
#include "commands/DrillingCycle.h"
#include "commands/LatheFinish.h"
#include "commands/LathePass.h"
#include "commands/MachineStatus.h"
#include "commands/ModalCycle.h"
#include "commands/StateCommand.h"
#include "commands/ThreadPass.h"
#include "commands/WordCode.h"
#include "commands/cycleKinds.h"
#include "driver/DialectRules.h"
#include "driver/returnCodes.h"
#include "paramfile/ModelBuilder.h"
#include "paramfile/readReals.h"

#include <string>
#include <string_view>

namespace {

template<const CycleKind& Kind>
int cycle(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    const int code = builder.AddMovement<DrillingCycle>(value, control, builder.Status(), Kind);
    if (code == 0) {
        control.cycles.Join(*builder.ConfiguredCommand());
    }
    return code;
}

template<LathePassKind Kind>
int pass(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddMovement<LathePass>(value, builder.GetStages(), builder.Status(), Kind);
}

int threadPass(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddMovement<ThreadPass>(value, builder.GetStages(), builder.Status(),
                                           builder.GetFactory());
}

int finish(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const WordCode code(value.text);
    if (code.Letters() != "G" || code.Number() < 0) {
        return kKeyValueUnknown;
    }
    builder.Rules().followingCodes.push_back(code.Number());
    return builder.AddMovement<LatheFinish>(value, builder.GetStages(), builder.Status());
}

int cycleEnd(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddMovement<CycleEnd>(value, builder.GetStages(), builder.Status());
}

// A name and a kind, with a blank between them.
int cycleCall(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    const std::size_t blank = text.find(' ');
    const std::size_t begin = text.find_first_not_of(' ', blank);
    const CycleCallKind* const kind =
        begin == std::string_view::npos ? nullptr : CycleCall::FindKind(text.substr(begin));
    if (kind == nullptr) {
        return kKeyValueUnknown;
    }
    std::string name(text.substr(0, blank));
    return builder.AddMovement<CycleCall>({.text = name.data()}, builder.GetStages(),
                                          builder.Status(), *kind);
}

int modalCycle(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<ModalCycle>(value, ActionKind::kMovement, builder.GetStages());
}

template<bool IsToStart>
int returnMode(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddCode<StateCommand>(
        value, ActionKind::kReturnMode, builder.GetStages(),
        [](Control& c) { c.cycles.rules.returnsToStart = IsToStart; });
}

template<WordList CycleWords::*List>
int address(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    return builder.AddAddress(value, builder.GetStages().cycles.words.*List);
}

template<bool CycleRules::*Rule>
int rule(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    builder.GetStages().cycles.rules.*Rule = text == "1";
    return text == "1" || text == "0" ? 0 : int{kKeyValueUnknown};
}

int strictness(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    (void)builder.GetStages();
    const std::string_view text = value.text;
    builder.SetStrictCycles(text == "1");
    return text == "1" || text == "0" ? 0 : int{kKeyValueUnknown};
}

int lift(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::optional<double> number = readOneReal(value.text);
    if (!number || *number < 0.0) {
        return kKeyValueUnknown;
    }
    builder.GetStages().cycles.rules.lift = *number;
    return 0;
}

using enum KeyKind;
using enum Key::Form;
using Rules = CycleRules;
using Words = CycleWords;

constexpr Key kCycleKeys[] = {
    {"REV_CYCLE_DRILL", kWhole, kText, cycle<cycleKinds::kDrill>, 0, true},
    {"REV_CYCLE_DRILL_DWELL", kWhole, kText, cycle<cycleKinds::kDrillDwell>, 0, true},
    {"REV_CYCLE_DEEP", kWhole, kText, cycle<cycleKinds::kDeep>, 0, true},
    {"REV_CYCLE_BREAK_CHIP", kWhole, kText, cycle<cycleKinds::kBreakChip>, 0, true},
    {"REV_CYCLE_TAP", kWhole, kText, cycle<cycleKinds::kTap>, 0, true},
    {"REV_CYCLE_TAP_LEFT", kWhole, kText, cycle<cycleKinds::kTapLeft>, 0, true},
    {"REV_CYCLE_FEED_OUT", kWhole, kText, cycle<cycleKinds::kFeedOut>, 0, true},
    {"REV_CYCLE_STOP_OUT", kWhole, kText, cycle<cycleKinds::kStopOut>, 0, true},
    {"REV_CYCLE_DWELL_OUT", kWhole, kText, cycle<cycleKinds::kDwellOut>, 0, true},
    {"REV_CYCLE_FINE_BORE", kWhole, kText, cycle<cycleKinds::kFineBore>, 0, true},
    {"REV_CYCLE_OFF", kWhole, kText, cycleEnd, 0, true},
    {"REV_CYCLE_TO_START", kWhole, kText, returnMode<true>, 0, true},
    {"REV_CYCLE_TO_CLEARANCE", kWhole, kText, returnMode<false>, 0, true},
    {"REV_CYCLE_CLEARANCE", kWhole, kAddress, address<&Words::clearance>, 0, true},
    {"REV_CYCLE_PECK", kWhole, kAddress, address<&Words::peck>, 0, true},
    {"REV_CYCLE_PAUSE", kWhole, kAddress, address<&Words::pause>, 0, true},
    {"REV_CYCLE_PAUSE_MILLISECONDS", kWhole, kAddress, address<&Words::pauseMilliseconds>, 0, true},
    {"REV_CYCLE_REPEAT", kWhole, kAddress, address<&Words::repeat>, 0, true},
    {"REV_CYCLE_CALL", kWhole, kText, cycleCall, 0, true},
    {"REV_CYCLE_MODAL", kWhole, kText, modalCycle, 0, true},
    {"REV_LATHE_TURN", kWhole, kText, pass<LathePassKind::kTurn>, 0, true},
    {"REV_LATHE_FACE", kWhole, kText, pass<LathePassKind::kFace>, 0, true},
    {"REV_LATHE_THREAD", kWhole, kText, threadPass, 0, true},
    {"REV_LATHE_FINISH", kWhole, kText, finish, 0, true},
    {"REV_LATHE_TAPER", kWhole, kAddress, address<&Words::taper>, 0, true},
    {"REV_CYCLE_LIFT", kWhole, kText, lift},
    {"REV_CYCLE_FEED_TO_RETURN", kWhole, kText, rule<&Rules::feedsToReturn>},
    {"REV_CYCLE_STRAIGHT", kWhole, kText, rule<&Rules::goesStraight>},
    {"REV_CYCLE_STRICT", kWhole, kText, strictness},
};

} // namespace

std::span<const Key> cycleKeys() noexcept { return kCycleKeys; }
