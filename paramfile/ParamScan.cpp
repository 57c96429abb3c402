#include "paramfile/ParamScan.h"

#include "commands/CircularMovement.h"
#include "commands/Coolant.h"
#include "commands/EndCommand.h"
#include "commands/FeedRate.h"
#include "commands/LinearMovement.h"
#include "commands/MovTypeCom.h"
#include "commands/RegularCommand.h"
#include "commands/Spindle.h"
#include "driver/NCScan.h"
#include "driver/fileIdentity.h"
#include "driver/returnCodes.h"
#include "paramfile/fileLines.h"
#include "paramfile/lineCoder.h"
#include "paramfile/ppcrypt.h"
#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "update/updatePP.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

bool beginsWith(const char* line, const char* text) noexcept {
    return std::strncmp(line, text, std::strlen(text)) == 0;
}

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

} // namespace

ParamScan::ParamScan(NCScan& ncscan) noexcept : m_ncscan(ncscan) {}

ParamScan::~ParamScan() = default;

int ParamScan::SetParameterFile(const char* name) {
    if (name == nullptr) {
        return kNoParameterFileName;
    }
    const FileOwner input(std::fopen(name, "rt"));
    if (input == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kParameterFileUnreadable;
    }
    if (isDirectory(input.get())) {
        m_ncscan.KeepFailure({.systemError = EISDIR});
        return kParameterFileUnreadable;
    }
    if (m_ncscan.IsOwnOutput(input.get())) {
        m_ncscan.KeepFailure({.text = "it did not exist before this run made it as output or log"});
        return kParameterFileUnreadable;
    }
    return SetParameterStream(input.get());
}

int ParamScan::SetParameterStream(std::FILE* in) {
    m_lineNumber = 0;
    m_continuesLine = false;
    m_file.reset(std::tmpfile());
    if (m_file == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kNoTemporaryFile;
    }
    if (const int code = convert(in, m_file.get()); code != 0) {
        return code;
    }
    if (std::fflush(m_file.get()) != 0 || std::ferror(m_file.get()) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kNoTemporaryFile;
    }
    if (std::fseek(m_file.get(), 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kRewindFailed;
    }
    return 0;
}

int ParamScan::convert(std::FILE* in, std::FILE* out) {
    Line line;
    if (std::fgets(line.data(), static_cast<int>(line.size()), in) == nullptr) {
        if (std::ferror(in) == 0) {
            return kParameterFileEndsEarly;
        }
        m_ncscan.KeepFailure({.systemError = errno});
        return kParameterFileUnreadable;
    }
    if (std::fseek(in, 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        return kRewindFailed;
    }
    return IsCurrentFormat(line.data()) ? decode(in, out) : update(in, out);
}

bool ParamScan::IsCurrentFormat(const char* firstLine) noexcept {
    return std::strstr(firstLine, "Header") != nullptr;
}

int ParamScan::decode(std::FILE* in, std::FILE* out) {
    CharFeldOwner lines;
    if (const int error = readFileLines(in, lines); error != 0) {
        m_ncscan.KeepFailure({.systemError = error});
        return error == ENOMEM ? kMemoryExhausted : kParameterFileEndsEarly;
    }
    const int code = ppcrypt(1, lines.get());
    for (char** line = lines.get(); *line != nullptr; ++line) {
        std::fprintf(out, "%s\n", *line);
    }
    if (code == kCoderNoMemory) {
        return kMemoryExhausted;
    }
    return code == 0 ? 0 : kDecodeFailed;
}

// The updater takes over and closes the stream that it reads, so it gets one of its own.
int ParamScan::update(std::FILE* in, std::FILE* out) {
    const int descriptor = dup(fileno(in));
    std::FILE* const own = descriptor < 0 ? nullptr : fdopen(descriptor, "rt");
    if (own == nullptr) {
        m_ncscan.KeepFailure({.systemError = errno});
        if (descriptor >= 0) {
            (void)close(descriptor);
        }
        return kUpdateFailed;
    }
    // Both streams share one position, and `in` may have kept its rewinding to its own buffer.
    if (std::fseek(own, 0, SEEK_SET) != 0) {
        m_ncscan.KeepFailure({.systemError = errno});
        (void)std::fclose(own);
        return kRewindFailed;
    }
    errno = 0;
    if (updatePP(own, out) == 0) {
        return 0;
    }
    return errno == ENOMEM ? kMemoryExhausted : kUpdateFailed;
}

int ParamScan::run() {
    if (const int code = CreateModalCommands(); code != 0) {
        return code;
    }
    Line line;
    while (std::feof(m_file.get()) == 0) {
        if (!fetchLine(line)) {
            if (std::ferror(m_file.get()) != 0) {
                m_ncscan.KeepFailure({.systemError = errno});
                return kParameterFileEndsEarly;
            }
            continue;
        }
        string_mani(3, line.data());
        for (const auto searchFor : {&ParamScan::CheckForLatheMachine, &ParamScan::SearchForCommand,
                                     &ParamScan::SearchForParameter}) {
            if (const int code = (this->*searchFor)(line.data()); code != 0) {
                return code;
            }
        }
    }
    m_ncscan.Availablecommands().SortCommands();
    return 0;
}

// A line that does not fit is read in pieces, all with the number of that line.
bool ParamScan::fetchLine(Line& line) noexcept {
    if (std::fgets(line.data(), static_cast<int>(line.size()), m_file.get()) == nullptr) {
        return false;
    }
    m_lineNumber += m_continuesLine ? 0 : 1;
    m_continuesLine = std::strchr(line.data(), '\n') == nullptr;
    return true;
}

int ParamScan::readLine(Line& line) noexcept {
    if (!fetchLine(line)) {
        return kParameterFileEndsEarly;
    }
    string_mani(3, line.data());
    return 0;
}

// The character two behind the key (behind the key and "_LATHE" on a lathe) decides: it must be
// missing or a blank. So KEY stands for a mill and KEY_LATHE for a lathe, KEY_2ND for neither, and
// one stray character behind the key does no harm. What lies behind the text counts as missing,
// except that a lathe wants the whole suffix.
bool ParamScan::Matches(const Key& key, const char* line, bool isLathe) noexcept {
    if (!beginsWith(line, key.text)) {
        return false;
    }
    if (!key.exact) {
        return true;
    }
    constexpr std::size_t kSuffixLength = sizeof("_LATHE") - 1;
    const std::size_t length = std::strlen(line);
    const std::size_t keyEnd = std::strlen(key.text) + (isLathe ? kSuffixLength : 0);
    if (isLathe && length < keyEnd) {
        return false;
    }
    return length <= keyEnd + 1 || line[keyEnd + 1] == ' ';
}

int ParamScan::search(std::span<const Key> keys, const char* line) {
    for (const Key& key : keys) {
        if (!Matches(key, line, IsLathe())) {
            continue;
        }
        Line value;
        if (const int code = readLine(value); code != 0) {
            return code;
        }
        return Act(key, value.data());
    }
    return 0;
}

int ParamScan::Act(const Key& key, char* value) {
    m_configured = nullptr;
    m_addedWord = nullptr;
    return value[0] == '\0' ? 0 : key.act(*this, value);
}

int ParamScan::CheckForLatheMachine(const char* line) { return search(ClassKeys(), line); }

int ParamScan::SearchForCommand(const char* line) { return search(CommandKeys(), line); }

int ParamScan::SearchForParameter(const char* line) { return search(ParameterKeys(), line); }

template<class Kind, class... Arguments>
int ParamScan::create(Kind*& slot, CommandGroup* group, Arguments... arguments) {
    auto command = std::make_unique<Kind>(arguments...);
    if (!command->HasWriter()) {
        return kMemoryExhausted;
    }
    slot = command.get();
    m_ncscan.Availablecommands().NewCommand(command.release());
    group->NewCommand(slot);
    return 0;
}

int ParamScan::CreateModalCommands() {
    Factory* const factory = m_ncscan.GetOutputFactory();
    if (factory == nullptr) {
        return kOutputTypeUnsupported;
    }
    // Nothing of an earlier conversion reaches this one.
    MovementCommand::SetInsertTLAXIS(false);
    MovementCommand::SetTLAXISdirection(gmVector3(0.0, 0.0, 1.0));

    MachineStatus* const machine = &status();
    CommandGroup* const movement = machine->GetMovementCom();
    CommandGroup* const feed = machine->GetFeedRateCom();
    CommandGroup* const type = machine->GetMovTypeCom();
    CommandGroup* const spindle = machine->GetSpindleCom();
    CommandGroup* const coolant = machine->GetCoolantCom();
    CommandGroup* const tool = machine->GetToolCom();
    const int codes[] = {
        create(m_rapid, movement, machine, factory),
        create(m_linear, movement, machine, factory),
        create(m_clockwise, movement, machine, factory),
        create(m_counterClockwise, movement, machine, factory),
        create(m_feedPerMinute, feed, machine, factory),
        create(m_feedPerRevolution, feed, machine, factory),
        create(m_absolute, type, factory),
        create(m_incremental, type, factory),
        create(m_spindleStop, spindle, machine, factory),
        create(m_spindleClockwise, spindle, machine, factory),
        create(m_spindleCounterClockwise, spindle, machine, factory),
        create(m_coolantOn, coolant, factory),
        create(m_coolantOff, coolant, factory),
        create(m_toolChange, tool, machine, factory),
    };
    for (const int code : codes) {
        if (code != 0) {
            return code;
        }
    }
    movement->SetActiveCommand(m_rapid);
    feed->SetActiveCommand(m_feedPerMinute);
    type->SetActiveCommand(m_absolute);
    spindle->SetActiveCommand(m_spindleStop);
    coolant->SetActiveCommand(m_coolantOff);
    tool->SetActiveCommand(m_toolChange);

    char defaultChange[] = "M6";
    if (const int code = configure(m_toolChange, defaultChange, tool, machine); code != 0) {
        return code;
    }
    char defaultTool[] = "T";
    Parameter* toolWord = nullptr;
    if (const int code = addParameter(defaultTool, toolWord); code != 0) {
        return code;
    }
    m_toolChange->InitToolParm(toolWord);
    return 0;
}

// Gives the command the code that stands in the value. A text or writer that could not be allocated
// ends the conversion: a dialect that misses a word must not be used.
template<class Kind, class... Arguments>
int ParamScan::configure(Kind* command, char* value, Arguments... arguments) {
    char* letters = nullptr;
    long number = -1;
    if (const int code = SplitCommand(value, letters, number); code != 0) {
        return code;
    }
    command->InitInstSyntax(letters, static_cast<int>(number), m_ncscan.GetOutputFactory(),
                            arguments...);
    m_configured = command;
    const bool isTextLost = letters != nullptr && command->GetSyntaxString() == nullptr;
    return isTextLost || !command->HasWriter() ? kMemoryExhausted : 0;
}

int ParamScan::addEndCommand(char* value) {
    auto command = std::make_unique<EndCommand>();
    if (const int code = configure(command.get(), value); code != 0) {
        return code;
    }
    m_ncscan.Availablecommands().NewCommand(command.release());
    return 0;
}

int ParamScan::addParameter(char* value, Parameter*& parameter) {
    auto word = std::make_unique<Parameter>(value);
    if (word->GetSyntaxString() == nullptr) {
        return kMemoryExhausted;
    }
    parameter = word.get();
    m_addedWord = parameter;
    m_ncscan.Availableparameters().NewParameter(word.release());
    return 0;
}

template<class Movement>
int ParamScan::configureMovement(Movement* command, char* value, Boolean flag) {
    return configure(command, value, status().GetMovementCom(), &status(), flag);
}

int ParamScan::configureFeed(FeedRate* command, char* value, Boolean perMinute) {
    return configure(command, value, status().GetFeedRateCom(), &status(), perMinute);
}

int ParamScan::configureSpindle(Spindle* command, char* value, int mode) {
    return configure(command, value, status().GetSpindleCom(), &status(), mode);
}

template<class Attach>
int ParamScan::addAddress(char* value, Attach attach) {
    Parameter* parameter = nullptr;
    if (const int code = addParameter(value, parameter); code != 0) {
        return code;
    }
    attach(parameter);
    return ScanForDecPlace(parameter);
}

int ParamScan::addCentre(char* value, std::size_t axis,
                         void (CircularMovement::*attach)(Parameter*) noexcept) {
    return addAddress(value, [&](Parameter* word) {
        m_centreWords[axis] = word;
        for (CircularMovement* const circle : circles()) {
            (circle->*attach)(word);
        }
    });
}

int ParamScan::addCoordinate(char* value, void (MovementCommand::*attach)(Parameter*) noexcept,
                             Boolean incremental) {
    return addAddress(value, [&](Parameter* word) {
        for (MovementCommand* const movement : movements()) {
            (movement->*attach)(word);
        }
        word->InitStandardInc(incremental);
    });
}

int ParamScan::setDivisors(const char* value, void (MovementCommand::*set)(const char*) noexcept) {
    for (MovementCommand* const movement : movements()) {
        (movement->*set)(value);
    }
    return 0;
}

MachineStatus& ParamScan::status() const noexcept { return m_ncscan.Machinestatus(); }

std::array<MovementCommand*, 4> ParamScan::movements() const noexcept {
    return {m_rapid, m_linear, m_clockwise, m_counterClockwise};
}

std::array<CircularMovement*, 2> ParamScan::circles() const noexcept {
    return {m_clockwise, m_counterClockwise};
}

int ParamScan::SplitCommand(char* text, char*& letters, long& number) {
    if (text == nullptr || *text == '\0') {
        return kCommandValueEmpty;
    }
    char* const end = text + std::strlen(text);
    char* digits = end;
    while (digits != text && isDigitByte(digits[-1])) {
        --digits;
    }
    letters = digits == text ? nullptr : text;
    if (digits != end) {
        number = readInteger(digits);
        *digits = '\0';
    }
    return 0;
}

int ParamScan::ScanForDecPlace(Parameter* parameter) {
    Line passedOver;
    if (const int code = readLine(passedOver); code != 0) {
        return code;
    }
    Line format;
    if (const int code = readLine(format); code != 0) {
        return code;
    }
    const char* const point = std::strchr(format.data(), '.');
    if (format[0] != '\0' && std::strchr("BMYZ", format[0]) != nullptr && point != nullptr) {
        parameter->SetDecimalPlace(readInteger(point + 1));
    }
    return 0;
}

// The message goes to the log first, and without a log to the output alone.
int ParamScan::refuseConversational() {
    Factory* const factory = m_ncscan.GetOutputFactory();
    for (std::FILE* const stream : {factory->GetLogFile(), factory->GetOutputFile()}) {
        if (stream != nullptr) {
            (void)std::fputs(
                "Heidenhain Dialog format is not supported. No APTSOURCE is created.\n", stream);
        }
    }
    return kDialectUnsupported;
}

std::span<const ParamScan::Key> ParamScan::ClassKeys() noexcept {
    static constexpr Key kKeys[] = {
        {"MFG_CLASS_NAME", false,
         [](ParamScan& scan, char* value) {
             const bool isLathe = std::strstr(value, "LATHE_MACHINE") != nullptr;
             if (isLathe) {
                 scan.m_isLathe = 1;
                 for (CircularMovement* const circle : scan.circles()) {
                     circle->SetNormVector(0.0, -1.0, 0.0);
                 }
             }
             scan.m_counterClockwise->SetInsertTLAXIS(!isLathe);
             return 0;
         }},
    };
    return kKeys;
}

std::span<const ParamScan::Key> ParamScan::CommandKeys() noexcept {
    static constexpr Key kKeys[] = {
        {"COMMENT_START", false,
         [](ParamScan& scan, char* value) {
             Comment* const comment = scan.status().GetComment();
             comment->InitCommentStart(value);
             return comment->GetCommentStart() != nullptr ? 0 : int{kMemoryExhausted};
         }},
        {"COMMENT_END", false,
         [](ParamScan& scan, char* value) {
             Comment* const comment = scan.status().GetComment();
             comment->InitCommentEnd(value);
             return comment->GetCommentEnd() != nullptr ? 0 : int{kMemoryExhausted};
         }},
        {"RECORD_NUMBER", false,
         [](ParamScan& scan, char* value) {
             RecordNumber* const record = scan.status().GetRecordNumber();
             record->InitRecordNumber(value);
             return record->GetRecordNumber() != nullptr ? 0 : int{kMemoryExhausted};
         }},
        {"DECIMAL_POINT_REPRESENTATION", false,
         [](ParamScan& scan, char* value) {
             scan.status().InitDecimalSeparator(value);
             return 0;
         }},
        {"SPINDLE_CLOCKWISE", false,
         [](ParamScan& scan, char* value) {
             return scan.configureSpindle(scan.m_spindleClockwise, value, 1);
         }},
        {"SPINDLE_COUNTER_CLOCKWISE", false,
         [](ParamScan& scan, char* value) {
             return scan.configureSpindle(scan.m_spindleCounterClockwise, value, -1);
         }},
        {"SPINDLE_STOP", false,
         [](ParamScan& scan, char* value) {
             return scan.configureSpindle(scan.m_spindleStop, value, 0);
         }},
        {"SPINDLE_OFF_LATHE", false,
         [](ParamScan& scan, char* value) {
             return scan.configureSpindle(scan.m_spindleStop, value, 0);
         }},
        {"RAPID", true,
         [](ParamScan& scan, char* value) {
             return std::strcmp(value, "FMAX") == 0
                        ? scan.refuseConversational()
                        : scan.configureMovement(scan.m_rapid, value, TRUE);
         }},
        {"LINEAR_INTERPOLATION", true,
         [](ParamScan& scan, char* value) {
             return scan.configureMovement(scan.m_linear, value, FALSE);
         }},
        {"CIRCULAR_INTERPOLATION_RIGHT", true,
         [](ParamScan& scan, char* value) {
             return scan.configureMovement(scan.m_clockwise, value, TRUE);
         }},
        {"CIRCULAR_INTERPOLATION_LEFT", false,
         [](ParamScan& scan, char* value) {
             return scan.configureMovement(scan.m_counterClockwise, value, FALSE);
         }},
        {"INCREMENTAL_ON", false,
         [](ParamScan& scan, char* value) {
             return scan.configure(scan.m_incremental, value, scan.status().GetMovTypeCom(), FALSE);
         }},
        {"ABSOLUTE_ON", false,
         [](ParamScan& scan, char* value) {
             return scan.configure(scan.m_absolute, value, scan.status().GetMovTypeCom(), TRUE);
         }},
        {"COOLANT_ON", false,
         [](ParamScan& scan, char* value) {
             return scan.configure(scan.m_coolantOn, value, scan.status().GetCoolantCom(), TRUE);
         }},
        {"COOLANT_OFF", false,
         [](ParamScan& scan, char* value) {
             return scan.configure(scan.m_coolantOff, value, scan.status().GetCoolantCom(), FALSE);
         }},
        {"FEEDRAT_MMPM", false,
         [](ParamScan& scan, char* value) {
             return scan.configureFeed(scan.m_feedPerMinute, value, TRUE);
         }},
        {"FEEDRAT_MMPR", false,
         [](ParamScan& scan, char* value) {
             return scan.configureFeed(scan.m_feedPerRevolution, value, FALSE);
         }},
        {"REV_TLCHG_COM", false,
         [](ParamScan& scan, char* value) {
             return scan.configure(scan.m_toolChange, value, scan.status().GetToolCom(),
                                   &scan.status());
         }},
        {"PROGRAM_END", false,
         [](ParamScan& scan, char* value) { return scan.addEndCommand(value); }},
        {"PROGRAM_STOP", false,
         [](ParamScan& scan, char* value) { return scan.addEndCommand(value); }},
    };
    return kKeys;
}

std::span<const ParamScan::Key> ParamScan::ParameterKeys() noexcept {
    // The keys of incremental coordinates come first: the plain ones are their prefixes.
    static constexpr Key kKeys[] = {
        {"FEEDRATE", false,
         [](ParamScan& scan, char* value) {
             return scan.addAddress(value, [&](Parameter* word) {
                 scan.m_feedPerMinute->InitSpeedParm(word);
                 scan.m_feedPerRevolution->InitSpeedParm(word);
             });
         }},
        {"SPINDLE_SPEED", false,
         [](ParamScan& scan, char* value) {
             return scan.addAddress(value, [&](Parameter* word) {
                 scan.m_spindleStop->InitSpeedParm(word);
                 scan.m_spindleClockwise->InitSpeedParm(word);
                 scan.m_spindleCounterClockwise->InitSpeedParm(word);
             });
         }},
        {"1ST_COORDINATE_INCR", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitIncXParm, TRUE);
         }},
        {"2ND_COORDINATE_INCR", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitIncYParm, TRUE);
         }},
        {"3RD_COORDINATE_INCR", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitIncZParm, TRUE);
         }},
        {"1ST_COORDINATE", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitXParm, FALSE);
         }},
        {"2ND_COORDINATE", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitYParm, FALSE);
         }},
        {"3RD_COORDINATE", true,
         [](ParamScan& scan, char* value) {
             return scan.addCoordinate(value, &MovementCommand::InitZParm, FALSE);
         }},
        {"1ST_CIRCLE_CENTER_COORDINATE", false,
         [](ParamScan& scan, char* value) {
             return scan.addCentre(value, 0, &CircularMovement::InitXCirParm);
         }},
        {"2ND_CIRCLE_CENTER_COORDINATE", false,
         [](ParamScan& scan, char* value) {
             return scan.addCentre(value, 1, &CircularMovement::InitYCirParm);
         }},
        {"3RD_CIRCLE_CENTER_COORDINATE", false,
         [](ParamScan& scan, char* value) {
             return scan.addCentre(value, 2, &CircularMovement::InitZCirParm);
         }},
        {"CIRCLE_CENTER_ABS", false,
         [](ParamScan& scan, char* value) {
             for (Parameter* const word : scan.m_centreWords) {
                 if (word != nullptr) {
                     word->InitStandardInc(value[0] == '1' ? FALSE : TRUE);
                 }
             }
             return 0;
         }},
        {"REV_TLCHG_TLADR", false,
         [](ParamScan& scan, char* value) {
             Parameter* const tool = scan.m_toolChange->GetToolParm();
             tool->SetSyntaxString(value);
             return tool->GetSyntaxString() != nullptr ? 0 : int{kMemoryExhausted};
         }},
        {"ZX_LATHE_X_ASSIGNMENT", false,
         [](ParamScan& scan, char* value) {
             return scan.setDivisors(value, &MovementCommand::SetXDivisor);
         }},
        {"ZX_LATHE_Y_ASSIGNMENT", false,
         [](ParamScan& scan, char* value) {
             return scan.setDivisors(value, &MovementCommand::SetYDivisor);
         }},
        {"ZX_LATHE_Z_ASSIGNMENT", false,
         [](ParamScan& scan, char* value) {
             return scan.setDivisors(value, &MovementCommand::SetZDivisor);
         }},
        {"MFG_INIT_SPINDLE", false,
         [](ParamScan& scan, char* value) {
             scan.m_linear->SetTLAXISdirection(readDirection(value));
             return 0;
         }},
    };
    return kKeys;
}
