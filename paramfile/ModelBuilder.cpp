#include "paramfile/ModelBuilder.h"

#include "apt/Factory.h"
#include "commands/CircularMovement.h"
#include "commands/Control.h"
#include "commands/Coolant.h"
#include "commands/CycleEnd.h"
#include "commands/EndCommand.h"
#include "commands/FeedRate.h"
#include "commands/InverseTime.h"
#include "commands/LinearMovement.h"
#include "commands/MovTypeCom.h"
#include "commands/RegularCommand.h"
#include "commands/Spindle.h"
#include "commands/WordCode.h"
#include "driver/NCScan.h"
#include "driver/returnCodes.h"
#include "paramfile/readReals.h"

#include <cstring>
#include <memory>
#include <type_traits>

namespace {

/// Makes a modal command for its place among the others; null when memory is exhausted.
template<auto Place>
std::unique_ptr<Command> make(ModalCommands& commands, MachineStatus* status, Factory* factory) {
    using Kind = std::remove_pointer_t<std::remove_reference_t<decltype(commands.*Place)>>;
    std::unique_ptr<Kind> command;
    if constexpr (std::is_constructible_v<Kind, MachineStatus*, Factory*>) {
        command = std::make_unique<Kind>(status, factory);
    } else {
        command = std::make_unique<Kind>(factory);
    }
    if (!command->HasWriter()) {
        return nullptr;
    }
    commands.*Place = command.get();
    return command;
}

struct Row {
    ModalGroup group;
    bool isActiveAtFirst;
    ActionKind action;
    std::unique_ptr<Command> (*make)(ModalCommands&, MachineStatus*, Factory*);
};

using enum ModalGroup;
using All = ModalCommands;

// In the order of their registration, which decides between words of equal length.
constexpr Row kRows[] = {
    {kMovement, true, ActionKind::kMovement, make<&All::rapid>},
    {kMovement, false, ActionKind::kMovement, make<&All::linear>},
    {kMovement, false, ActionKind::kMovement, make<&All::clockwise>},
    {kMovement, false, ActionKind::kMovement, make<&All::counterClockwise>},
    {kFeedRate, true, ActionKind::kFeed, make<&All::feedPerMinute>},
    {kFeedRate, false, ActionKind::kFeed, make<&All::feedPerRevolution>},
    {kMovementType, true, ActionKind::kDistanceMode, make<&All::absolute>},
    {kMovementType, false, ActionKind::kDistanceMode, make<&All::incremental>},
    {kSpindle, true, ActionKind::kSpindleOff, make<&All::spindleStop>},
    {kSpindle, false, ActionKind::kSpindle, make<&All::spindleClockwise>},
    {kSpindle, false, ActionKind::kSpindle, make<&All::spindleCounterClockwise>},
    {kCoolant, false, ActionKind::kCoolant, make<&All::coolantOn>},
    {kCoolant, true, ActionKind::kCoolantOff, make<&All::coolantOff>},
    {kTool, true, ActionKind::kTool, make<&All::toolChange>},
};

} // namespace

std::array<MovementCommand*, 4> ModalCommands::Movements() const noexcept {
    return {rapid, linear, clockwise, counterClockwise};
}

std::array<CircularMovement*, 2> ModalCommands::Circles() const noexcept {
    return {clockwise, counterClockwise};
}

int ModelBuilder::CreateModalCommands() {
    if (GetFactory() == nullptr) {
        return kOutputTypeUnsupported;
    }
    // Nothing of an earlier conversion reaches this one.
    MovementCommand::SetInsertTLAXIS(false);
    MovementCommand::SetTLAXISdirection(gmVector3(0.0, 0.0, 1.0));

    for (const Row& row : kRows) {
        std::unique_ptr<Command> made = row.make(m_commands, &Status(), GetFactory());
        if (made == nullptr) {
            return kMemoryExhausted;
        }
        Command* const command = made.get();
        command->MarkAsBuiltIn();
        command->SetActionKind(row.action);
        m_ncscan.Availablecommands().NewCommand(made.release());
        CommandGroup* const group = Status().GetGroup(row.group);
        group->NewCommand(command);
        if (row.isActiveAtFirst) {
            group->SetActiveCommand(command);
        }
    }
    char letters[] = "M";
    const KeyValue code = {.text = letters, .letters = letters, .number = 6};
    if (const int result = Configure(m_commands.toolChange, code, Status().GetToolCom(), &Status());
        result != 0) {
        return result;
    }
    if (const int result = AddWord("T"); result != 0) {
        return result;
    }
    m_commands.toolChange->InitToolParm(m_addedWord);
    return 0;
}

int ModelBuilder::AddEndCommand(const KeyValue& value, bool isEnd) {
    auto command = std::make_unique<EndCommand>();
    if (const int code = Configure(command.get(), value); code != 0) {
        return code;
    }
    if (isEnd) {
        Rules().programEnds.push_back(command.get());
    }
    return registerCommand(std::move(command));
}

int ModelBuilder::addCode(const KeyValue& value, ActionKind kind,
                          std::unique_ptr<Command> command) {
    const WordCode code(value.text);
    if (!code.IsWord()) {
        return kKeyValueUnknown;
    }
    command->InitCode(code);
    command->SetActionKind(kind);
    m_configured = command.get();
    return registerCommand(std::move(command));
}

void ModelBuilder::joinGroup(ModalCommand& member, ModalGroup group) {
    member.JoinGroup(Status().GetGroup(group));
    Status().GetGroup(group)->NewCommand(&member);
}

void ModelBuilder::joinMovements(MovementCommand& movement) {
    joinGroup(movement, ModalGroup::kMovement);
    m_laterMovements.push_back(&movement);
}

int ModelBuilder::registerCommand(std::unique_ptr<Command> command) {
    command->MarkAsBuiltIn();
    m_ncscan.Availablecommands().NewCommand(command.release());
    return 0;
}

int ModelBuilder::Finish() {
    DialectRules& rules = Rules();
    rules.text = m_settings.Resolve(Status());
    rules.printsTexts = m_settings.printsTexts.value_or(false);
    if (m_settings.isInUse) {
        finishWords();
    }
    if (!rules.followingCodes.empty() && m_settings.language != ProgramLanguage::kHash) {
        KeepBadValue("REV_LATHE_FINISH", "without REV_PROGRAM_LANGUAGE HASH");
        return kKeyValueUnknown;
    }
    Control* const control = Status().GetControl();
    return control == nullptr ? 0 : finishControl(*control);
}

void ModelBuilder::finishWords() {
    const WordRule rule = m_settings.language == ProgramLanguage::kRParameter
                              ? WordRule::kStrictNames
                              : WordRule::kStrict;
    PassedWords& passed = Rules().passed;
    passed.rule = rule;
    passed.BuildFilter();
    const AvailableCommands& commands = m_ncscan.Availablecommands();
    for (int i = 0; i < commands.GetCommandCount(); ++i) {
        commands.GetCommand(i)->SetWordRule(rule);
    }
    const AvailableParameters& words = m_ncscan.Availableparameters();
    for (int i = 0; i < words.GetParameterCount(); ++i) {
        words.GetParameter(i)->SetWordRule(rule);
    }
}

int ModelBuilder::finishControl(Control& control) {
    constexpr double kPartsPerBlock = 10.0;
    constexpr double kPartsAnyway = 100'000.0;
    control.mostParts = kPartsAnyway + static_cast<double>(Rules().mostBlocks) * kPartsPerBlock;
    for (MovementCommand* const movement : m_laterMovements) {
        movement->MoveLike(*m_commands.rapid);
    }
    if (m_areCyclesStrict.value_or(control.isStrict)) {
        beginWithoutMovement(control);
    }
    control.cycles.spindle = {m_commands.spindleStop, m_commands.spindleClockwise,
                              m_commands.spindleCounterClockwise};
    control.words.axes = m_commands.rapid->Axes();
    control.words.centres = m_centreWords;
    control.axisMapping = &m_commands.rapid->Mapping();
    control.words.feed = m_commands.feedPerMinute->GetSpeedParm();
    control.words.speed = m_commands.spindleClockwise->GetSpeedParm();
    control.writer.reset(GetFactory()->GetControlCom());
    control.path.SetWriters(GetFactory()->GetLinearCom(), GetFactory()->GetCirculCom());
    if (control.writer == nullptr || !control.path.HasWriters()) {
        return kMemoryExhausted;
    }
    if (control.actions.IsInUse()) {
        const AvailableCommands& commands = m_ncscan.Availablecommands();
        for (int i = 0; i < commands.GetCommandCount(); ++i) {
            commands.GetCommand(i)->SetControl(&control);
        }
    }
    if (!control.inverseTimeCodes.empty()) {
        control.feedWriter.reset(GetFactory()->GetFeedRaCom());
        if (control.feedWriter == nullptr) {
            return kMemoryExhausted;
        }
        for (InverseTime* const command : control.inverseTimeCodes) {
            command->InitSpeedParm(control.words.feed);
        }
    }
    if (const int code = m_asksForRotaryAxes ? finishRotary(control) : 0; code != 0) {
        return code;
    }
    control.coordinates.Settle();
    if (const int code = m_hasReferencePoints ? finishHome(control) : 0; code != 0) {
        return code;
    }
    if (m_isLathe) {
        control.isLathe = true;
        control.plane = Plane::kZX;
        gmVector3 z(0.0, 0.0, 1.0);
        gmVector3 x(1.0, 0.0, 0.0);
        m_commands.rapid->Mapping().Place(z);
        m_commands.rapid->Mapping().Place(x);
        control.path.SetArcNormal(cross(z, x));
    } else {
        control.path.SetArcNormal(MovementCommand::GetTLAXISdirection());
    }
    return control.computesArcs ? finishArcs(control) : 0;
}

// The command has no text, so that no block holds it.
void ModelBuilder::beginWithoutMovement(Control& control) {
    control.cycles.rules.isStrict = true;
    auto none = std::make_unique<CycleEnd>(control, Status());
    none->MarkAsBuiltIn();
    none->MoveLike(*m_commands.rapid);
    Status().GetMovementCom()->SetActiveCommand(none.get());
    m_ncscan.Availablecommands().NewCommand(none.release());
}

int ModelBuilder::finishArcs(Control& control) {
    if (m_splitsCircle) {
        control.path.SplitArcs();
    }
    if (m_linearTolerance.empty()) {
        return 0;
    }
    const std::optional<double> tolerance = readOneReal(m_linearTolerance);
    if (!tolerance || !(*tolerance > 0.0)) {
        KeepBadValue("LINEAR_TOLERANCE", m_linearTolerance.c_str());
        return kKeyValueUnknown;
    }
    control.path.SetTolerance(*tolerance);
    return 0;
}

// Arcs are those of the machine then, and become curves of the tool.
int ModelBuilder::finishRotary(Control& control) {
    RotaryAxes& axes = *control.rotary;
    std::string key;
    std::string value;
    if (!m_machine.Settle(axes, key, value)) {
        KeepBadValue(key.c_str(), value.c_str());
        return kKeyValueUnknown;
    }
    if (!axes.IsInUse()) {
        return 0;
    }
    if (!axes.rtcp.table && !axes.rtcp.head) {
        KeepBadValue("REV_RTCP_HEAD_ONLY", "1 beside REV_RTCP_TABLE_ONLY");
        return kKeyValueUnknown;
    }
    gmVector3 point(1.0, 2.0, 3.0);
    const gmVector3 same = point;
    m_commands.rapid->Mapping().Place(point);
    if (point != same) {
        KeepBadValue("ZX_LATHE_X_ASSIGNMENT", "that turns axes round, beside rotary ones");
        return kKeyValueUnknown;
    }
    control.computesArcs = true;
    return 0;
}

int ModelBuilder::finishHome(Control& control) {
    constexpr std::array<const char*, 3> kKeys = {"MFG_X_HOME_POS", "MFG_Y_HOME_POS",
                                                  "MFG_Z_HOME_POS"};
    for (std::size_t axis = 0; axis < kKeys.size(); ++axis) {
        if (m_home[axis].empty()) {
            continue;
        }
        const std::optional<double> place = readOneReal(m_home[axis]);
        if (!place) {
            KeepBadValue(kKeys[axis], m_home[axis].c_str());
            return kKeyValueUnknown;
        }
        control.home[static_cast<int>(axis)] = *place;
    }
    return 0;
}

int ModelBuilder::AddAddress(const KeyValue& value, WordList& list) {
    if (std::strchr("0123456789+-.", value.text[0]) != nullptr) {
        return kKeyValueUnknown;
    }
    if (const int code = AddWord(value.text); code != 0) {
        return code;
    }
    list.Add(AddedWord());
    return 0;
}

Control& ModelBuilder::GetControl() const { return Status().MakeControl(); }

Control& ModelBuilder::GetStages() const {
    Control& control = GetControl();
    control.hasStages = true;
    return control;
}

RotaryAxes& ModelBuilder::GetRotary() const {
    Control& control = GetStages();
    if (control.rotary == nullptr) {
        control.rotary = std::make_unique<RotaryAxes>();
    }
    return *control.rotary;
}

void ModelBuilder::KeepBadValue(const char* key, const char* value) {
    m_ncscan.KeepFailureText(std::string(key).append(" has no value '").append(value).append("'"));
}

int ModelBuilder::AddWord(const char* address) {
    auto word = std::make_unique<Parameter>(address);
    if (word->GetSyntaxString() == nullptr) {
        return kMemoryExhausted;
    }
    m_addedWord = word.get();
    m_ncscan.Availableparameters().NewParameter(word.release());
    return 0;
}

MachineStatus& ModelBuilder::Status() const noexcept { return m_ncscan.Machinestatus(); }

DialectRules& ModelBuilder::Rules() const noexcept { return m_ncscan.Rules(); }

Factory* ModelBuilder::GetFactory() const noexcept { return m_ncscan.GetOutputFactory(); }

int ModelBuilder::outOfMemory() noexcept { return kMemoryExhausted; }
