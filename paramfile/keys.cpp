#include "paramfile/keys.h"

#include "apt/Factory.h"
#include "commands/CircularMovement.h"
#include "commands/Coolant.h"
#include "commands/EndCommand.h"
#include "commands/FeedRate.h"
#include "commands/LinearMovement.h"
#include "commands/MachineStatus.h"
#include "commands/MovTypeCom.h"
#include "commands/RegularCommand.h"
#include "commands/Spindle.h"
#include "driver/DialectRules.h"
#include "driver/returnCodes.h"
#include "paramfile/MachineSection.h"
#include "paramfile/ModelBuilder.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/numberText.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

int whenCopied(const void* copy) noexcept { return copy != nullptr ? 0 : int{kMemoryExhausted}; }

// Up to three reals separated by ";". A component that is not given keeps the default axis.
gmVector3 readDirection(const char* text) {
    gmVector3 direction(0.0, 0.0, 1.0);
    const char* component = text;
    for (int axis = 0; axis < 3; ++axis) {
        direction[axis] = readReal(component);
        component = std::strchr(component, ';');
        if (component == nullptr || *++component == '\0') {
            break;
        }
    }
    return direction;
}

// Codes. The argument is what tells the commands of one kind apart: rapid, clockwise, absolute, per
// minute, on, or the direction of the spindle.

template<auto Command, ModalGroup Group>
int code(ModelBuilder& builder, const KeyValue& value, int argument) {
    auto* const command = builder.Commands().*Command;
    MachineStatus& status = builder.Status();
    if constexpr (Group == ModalGroup::kCoolant || Group == ModalGroup::kMovementType) {
        return builder.Configure(command, value, status.GetGroup(Group), argument);
    } else {
        return builder.Configure(command, value, status.GetGroup(Group), &status, argument);
    }
}

// The message goes to the log first, and without a log to the output alone.
int refuseConversational(Factory& factory) {
    for (std::FILE* const stream : {factory.GetLogFile(), factory.GetOutputFile()}) {
        if (stream != nullptr) {
            (void)std::fputs(
                "Heidenhain Dialog format is not supported. No APTSOURCE is created.\n", stream);
        }
    }
    return kDialectUnsupported;
}

int rapid(ModelBuilder& builder, const KeyValue& value, int argument) {
    return value.number == -1 && std::strcmp(value.text, "FMAX") == 0
               ? refuseConversational(*builder.GetFactory())
               : code<&ModalCommands::rapid, ModalGroup::kMovement>(builder, value, argument);
}

int toolChange(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    MachineStatus& status = builder.Status();
    return builder.Configure(builder.Commands().toolChange, value, status.GetToolCom(), &status);
}

// The argument tells the end of the program from a stop.
int end(ModelBuilder& builder, const KeyValue& value, int argument) {
    return builder.AddEndCommand(value, argument == TRUE);
}

// Addresses.

// Has every one of the commands that was made use the word just added.
void attach(const auto& commands, auto use) {
    for (auto* const command : commands) {
        if (command != nullptr) {
            use(*command);
        }
    }
}

template<auto... Commands>
int speed(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    if (const int result = builder.AddWord(value.text); result != 0) {
        return result;
    }
    attach(std::array{builder.Commands().*Commands...},
           [&](auto& command) { command.InitSpeedParm(builder.AddedWord()); });
    return 0;
}

// The argument says whether the word is incremental by definition.
template<auto Use>
int coordinate(ModelBuilder& builder, const KeyValue& value, int argument) {
    if (const int result = builder.AddWord(value.text); result != 0) {
        return result;
    }
    attach(builder.Commands().Movements(),
           [&](MovementCommand& movement) { (movement.*Use)(builder.AddedWord()); });
    builder.AddedWord()->InitStandardInc(argument);
    return 0;
}

// The argument is the axis.
template<auto Use>
int centre(ModelBuilder& builder, const KeyValue& value, int argument) {
    if (const int result = builder.AddWord(value.text); result != 0) {
        return result;
    }
    builder.CentreWords()[static_cast<std::size_t>(argument)] = builder.AddedWord();
    attach(builder.Commands().Circles(),
           [&](CircularMovement& circle) { (circle.*Use)(builder.AddedWord()); });
    return 0;
}

// Texts.

int machineClass(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    if (value.isWhole) {
        builder.Machine().SetClass(value.text);
    }
    const bool isLathe = std::strstr(value.text, "LATHE_MACHINE") != nullptr;
    if (isLathe) {
        builder.SetLathe();
        builder.Rules().isLathe = true;
        builder.Status().GiveAxes(1U << AxisMapping::kY); // most have none
        attach(builder.Commands().Circles(),
               [](CircularMovement& circle) { circle.SetNormVector(0.0, -1.0, 0.0); });
    }
    MovementCommand::SetInsertTLAXIS(!isLathe);
    return 0;
}

int commentStart(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Comment* const comment = builder.Status().GetComment();
    comment->InitCommentStart(value.text);
    return whenCopied(comment->GetCommentStart());
}

int commentEnd(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Comment* const comment = builder.Status().GetComment();
    comment->InitCommentEnd(value.text);
    return whenCopied(comment->GetCommentEnd());
}

int recordNumber(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    RecordNumber* const record = builder.Status().GetRecordNumber();
    record->InitRecordNumber(value.text);
    return whenCopied(record->GetRecordNumber());
}

int decimalSeparator(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.Status().InitDecimalSeparator(value.text);
    return 0;
}

int centreMode(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    attach(builder.CentreWords(),
           [&](Parameter& word) { word.InitStandardInc(value.text[0] == '1' ? FALSE : TRUE); });
    return 0;
}

int toolWord(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const RegularCommand* const change = builder.Commands().toolChange;
    Parameter* const word = change == nullptr ? nullptr : change->GetToolParm();
    if (word == nullptr) {
        return 0;
    }
    word->SetSyntaxString(value.text);
    return whenCopied(word->GetSyntaxString());
}

template<auto Set>
int divisor(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    attach(builder.Commands().Movements(),
           [&](MovementCommand& movement) { (movement.*Set)(value.text); });
    return 0;
}

int toolAxis(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    MovementCommand::SetTLAXISdirection(readDirection(value.text));
    if (value.isWhole) {
        builder.Machine().SetToolAxis(readDirection(value.text));
    }
    return 0;
}

// The text of programs. A value that is none of a key's own is 308.

struct Choice {
    std::string_view yes;
    std::string_view no; // empty: there is none
};

constexpr Choice kCases = {"ANY", "EXACT"};
constexpr Choice kBlanks = {"IGNORE", "KEEP"};
constexpr Choice kSwitch = {"1", "0"};
constexpr Choice kTextOutput = {"PPRINT", ""};

template<auto Setting, const Choice& Values>
int choice(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    if (text != Values.yes && text != Values.no) {
        return kKeyValueUnknown;
    }
    builder.Settings().*Setting = text == Values.yes;
    return 0;
}

template<auto Marks>
int mark(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    (builder.Settings().*Marks).emplace_back(value.text);
    return 0;
}

int programLanguage(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::optional<ProgramLanguage> language = languageOf(value.text);
    builder.Settings().language = language.value_or(ProgramLanguage::kNone);
    return language ? 0 : int{kKeyValueUnknown};
}

int mostBlocks(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const char* const end = value.text + std::strlen(value.text);
    long most = 0;
    const auto [last, error] = std::from_chars(value.text, end, most);
    if (error != std::errc{} || last != end || most < 1) {
        return kKeyValueUnknown;
    }
    builder.Rules().mostBlocks = most;
    return 0;
}

int startCode(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.Rules().startCodes.emplace_back(value.text);
    return 0;
}

template<auto List>
int passedCode(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    WordCode code(value.text);
    if (!code.HasLetters()) {
        return kKeyValueUnknown;
    }
    (builder.Rules().passed.*List).codes.push_back(std::move(code));
    return 0;
}

template<auto List>
int passedAddress(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view letters = value.text;
    if (std::ranges::any_of(letters, isDigitByte)) {
        return kKeyValueUnknown;
    }
    (builder.Rules().passed.*List).addresses.emplace_back(letters);
    return 0;
}

using Set = DialectSettings;
using enum KeyKind;
using enum Key::Form;
using enum ModalGroup;
using All = ModalCommands;

constexpr Key kClassKeys[] = {
    {"MFG_CLASS_NAME", kPrefix, kText, machineClass},
};

constexpr Key kCommandKeys[] = {
    {"COMMENT_START", kPrefix, kText, commentStart},
    {"COMMENT_END", kPrefix, kText, commentEnd},
    {"RECORD_NUMBER", kPrefix, kText, recordNumber},
    {"DECIMAL_POINT_REPRESENTATION", kPrefix, kText, decimalSeparator},
    {"SPINDLE_CLOCKWISE", kPrefix, kCode, code<&All::spindleClockwise, kSpindle>, 1},
    {"SPINDLE_COUNTER_CLOCKWISE", kPrefix, kCode, code<&All::spindleCounterClockwise, kSpindle>,
     -1},
    {"SPINDLE_STOP", kPrefix, kCode, code<&All::spindleStop, kSpindle>, 0},
    {"SPINDLE_OFF_LATHE", kPrefix, kCode, code<&All::spindleStop, kSpindle>, 0},
    {"RAPID", kVariant, kCode, rapid, TRUE},
    {"LINEAR_INTERPOLATION", kVariant, kCode, code<&All::linear, kMovement>, FALSE},
    {"CIRCULAR_INTERPOLATION_RIGHT", kVariant, kCode, code<&All::clockwise, kMovement>, TRUE},
    {"CIRCULAR_INTERPOLATION_LEFT", kPrefix, kCode, code<&All::counterClockwise, kMovement>, FALSE},
    {"INCREMENTAL_ON", kPrefix, kCode, code<&All::incremental, kMovementType>, FALSE},
    {"ABSOLUTE_ON", kPrefix, kCode, code<&All::absolute, kMovementType>, TRUE},
    {"COOLANT_ON", kPrefix, kCode, code<&All::coolantOn, kCoolant>, TRUE},
    {"COOLANT_OFF", kPrefix, kCode, code<&All::coolantOff, kCoolant>, FALSE},
    {"FEEDRAT_MMPM", kPrefix, kCode, code<&All::feedPerMinute, kFeedRate>, TRUE},
    {"FEEDRAT_MMPR", kPrefix, kCode, code<&All::feedPerRevolution, kFeedRate>, FALSE},
    {"REV_TLCHG_COM", kPrefix, kCode, toolChange},
    {"PROGRAM_END", kPrefix, kCode, end, TRUE},
    {"PROGRAM_STOP", kPrefix, kCode, end, FALSE},
    {"REV_PROGRAM_LANGUAGE", kWhole, kText, programLanguage},
    {"REV_MOST_BLOCKS", kWhole, kText, mostBlocks},
    {"REV_LETTER_CASE", kWhole, kText, choice<&Set::anyCase, kCases>},
    {"REV_BLANKS", kWhole, kText, choice<&Set::ignoresBlanks, kBlanks>},
    {"REV_LINE_COMMENT", kWhole, kText, mark<&Set::lineComments>, 0, true},
    {"REV_BLOCK_SKIP", kWhole, kText, mark<&Set::skipMarks>, 0, true},
    {"REV_BLOCK_SKIP_ON", kWhole, kText, choice<&Set::skipsBlocks, kSwitch>},
    {"REV_PROGRAM_FRAME", kWhole, kText, mark<&Set::frames>, 0, true},
    {"REV_PROGRAM_NAME", kWhole, kText, mark<&Set::programNames>, 0, true},
    {"REV_BLOCK_END", kWhole, kText, mark<&Set::blockEnds>, 0, true},
    {"REV_END_STOPS", kWhole, kText, choice<&Set::endStops, kSwitch>},
    {"REV_START", kWhole, kText, startCode, 0, true},
    {"REV_NO_EFFECT", kWhole, kText, passedCode<&PassedWords::noEffect>, 0, true},
    {"REV_NO_EFFECT_WORD", kWhole, kText, passedAddress<&PassedWords::noEffect>, 0, true},
    {"REV_OWN_WORDS", kWhole, kText, passedCode<&PassedWords::own>, 0, true},
    {"REV_NOT_CONVERTED", kWhole, kText, passedCode<&PassedWords::notConverted>, 0, true},
    {"REV_NOT_CONVERTED_WORD", kWhole, kText, passedAddress<&PassedWords::notConverted>, 0, true},
    {"REV_TEXT_OUTPUT", kWhole, kText, choice<&Set::printsTexts, kTextOutput>},
};

// The keys of incremental coordinates come first: the plain ones are their prefixes.
constexpr Key kParameterKeys[] = {
    {"FEEDRATE", kPrefix, kAddress, speed<&All::feedPerMinute, &All::feedPerRevolution>},
    {"SPINDLE_SPEED", kPrefix, kAddress,
     speed<&All::spindleStop, &All::spindleClockwise, &All::spindleCounterClockwise>},
    {"1ST_COORDINATE_INCR", kVariant, kAddress, coordinate<&MovementCommand::InitIncXParm>, TRUE},
    {"2ND_COORDINATE_INCR", kVariant, kAddress, coordinate<&MovementCommand::InitIncYParm>, TRUE},
    {"3RD_COORDINATE_INCR", kVariant, kAddress, coordinate<&MovementCommand::InitIncZParm>, TRUE},
    {"1ST_COORDINATE", kVariant, kAddress, coordinate<&MovementCommand::InitXParm>, FALSE},
    {"2ND_COORDINATE", kVariant, kAddress, coordinate<&MovementCommand::InitYParm>, FALSE},
    {"3RD_COORDINATE", kVariant, kAddress, coordinate<&MovementCommand::InitZParm>, FALSE},
    {"1ST_CIRCLE_CENTER_COORDINATE", kPrefix, kAddress, centre<&CircularMovement::InitXCirParm>, 0},
    {"2ND_CIRCLE_CENTER_COORDINATE", kPrefix, kAddress, centre<&CircularMovement::InitYCirParm>, 1},
    {"3RD_CIRCLE_CENTER_COORDINATE", kPrefix, kAddress, centre<&CircularMovement::InitZCirParm>, 2},
    {"CIRCLE_CENTER_ABS", kPrefix, kText, centreMode},
    {"REV_TLCHG_TLADR", kPrefix, kText, toolWord},
    {"ZX_LATHE_X_ASSIGNMENT", kPrefix, kText, divisor<&MovementCommand::SetXDivisor>},
    {"ZX_LATHE_Y_ASSIGNMENT", kPrefix, kText, divisor<&MovementCommand::SetYDivisor>},
    {"ZX_LATHE_Z_ASSIGNMENT", kPrefix, kText, divisor<&MovementCommand::SetZDivisor>},
    {"MFG_INIT_SPINDLE", kPrefix, kText, toolAxis},
};

// A key behind an earlier one that takes every line which begins so would never be found.
constexpr bool areAllReachable(std::span<const Key> keys) {
    for (std::size_t later = 0; later < keys.size(); ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            if (keys[earlier].kind == kPrefix &&
                std::string_view(keys[later].text).starts_with(keys[earlier].text)) {
                return false;
            }
        }
    }
    return true;
}
static_assert(areAllReachable(kCommandKeys) && areAllReachable(kParameterKeys));

} // namespace

std::span<const Key> classKeys() noexcept { return kClassKeys; }

std::span<const Key> commandKeys() noexcept { return kCommandKeys; }

std::span<const Key> parameterKeys() noexcept { return kParameterKeys; }

std::array<std::span<const Key>, 8> keyTables() noexcept {
    return {classKeys(),      commandKeys(),    parameterKeys(), pathKeys(),
            technologyKeys(), coordinateKeys(), cycleKeys(),     axisKeys()};
}
