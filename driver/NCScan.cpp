#include "driver/NCScan.h"

#include "apt/appendText.h"
#include "commands/ArcRequest.h"
#include "commands/Control.h"
#include "commands/Movement.h"
#include "commands/arcShape.h"
#include "driver/LineSource.h"
#include "driver/ModelView.h"
#include "driver/ModelVocabulary.h"
#include "driver/TextSource.h"
#include "driver/fileIdentity.h"
#include "driver/looksComputed.h"
#include "driver/openAnotherStream.h"
#include "driver/returnCodes.h"
#include "program/ProgramSource.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

NCScan::NCScan() noexcept = default;

NCScan::~NCScan() { detachOutputs(); }

void NCScan::BeginConversion() noexcept {
    m_wasStopped = false;
    // What a host put into the model before its first conversion belongs to that.
    if (std::exchange(m_isFresh, false)) {
        return;
    }
    m_source.reset(); // it looks at the model
    m_vocabulary.reset();
    m_model.emplace();
    m_report = {};
    m_seen = {};
    m_failure = {};
}

// Factory and writers may live on, in the model and with a host: none reaches a closed stream.
void NCScan::detachOutputs() noexcept {
    if (m_outputState != nullptr) {
        m_outputState->Detach();
        m_outputState.reset();
    }
}

bool NCScan::IsOwnOutput(std::FILE* file) const noexcept {
    return isSameRegularFile(file, m_outputFile.get()) || isSameRegularFile(file, m_logFile.get());
}

bool NCScan::IsStandardStream(const char* name) const noexcept {
    return m_usesStandardStreams && name != nullptr && std::strcmp(name, "-") == 0;
}

int NCScan::PercentRead() const noexcept {
    struct stat file {};
    if (m_ncFile == nullptr || m_model->rules.text.language != ProgramLanguage::kNone ||
        fstat(fileno(m_ncFile.get()), &file) != 0 || !S_ISREG(file.st_mode) || file.st_size == 0) {
        return -1;
    }
    const auto read = std::min<double>(static_cast<double>(ftello(m_ncFile.get())),
                                       static_cast<double>(file.st_size));
    return static_cast<int>(100.0 * read / static_cast<double>(file.st_size));
}

int NCScan::SetNCFileName(const char* name) {
    m_ncFile.reset();
    m_ncFileName = TextCopy(name);
    if (name == nullptr) {
        return kNCFileUnreadable;
    }
    if (m_ncFileName.get() == nullptr) {
        return kMemoryExhausted;
    }
    m_ncFile.reset(IsStandardStream(name) ? openAnotherStream(STDIN_FILENO, "rt")
                                          : std::fopen(name, "rt"));
    if (m_ncFile == nullptr) {
        KeepFailure({.systemError = errno});
        return kNCFileUnreadable;
    }
    if (isDirectory(m_ncFile.get())) {
        m_ncFile.reset();
        KeepFailure({.systemError = EISDIR});
        return kNCFileUnreadable;
    }
    if (IsOwnOutput(m_ncFile.get())) {
        m_ncFile.reset();
        KeepFailure({.text = "it did not exist before this run made it as output or log"});
        return kNCFileUnreadable;
    }
    return 0;
}

int NCScan::SetOutputType(const eOutputType& type, const char* outputfile, const char* logfile) {
    detachOutputs();
    m_factory.reset();
    const int result = openOutput(outputfile);
    if (const int code = openLog(logfile); code != 0) {
        return code;
    }
    if (type != eOutputAPT) {
        KeepFailure({});
        return kOutputTypeUnsupported;
    }
    if (m_outputFile.get() != nullptr) {
        m_outputState =
            std::make_shared<OutputState>(OutputState{.counts = &m_report.Statements()});
        m_factory = std::make_unique<APTFactory>(
            Outputs(m_outputFile.get(), m_logFile.get(), m_outputState));
    }
    return result;
}

void NCScan::SetNoOutput() {
    detachOutputs();
    m_factory = std::make_unique<APTFactory>(nullptr, nullptr);
}

bool NCScan::open(BufferedFile& file, const char* name) const noexcept {
    return IsStandardStream(name) ? file.openAnother(STDOUT_FILENO) : file.open(name);
}

int NCScan::openOutput(const char* name) noexcept {
    m_outputFile.close();
    if (name == nullptr || !open(m_outputFile, name)) {
        KeepFailure({.systemError = name == nullptr ? 0 : errno});
        return kOutputFileUnwritable;
    }
    return 0;
}

int NCScan::openLog(const char* name) noexcept {
    m_logFile.close();
    if (name == nullptr) {
        return 0;
    }
    if (isSameRegularFile(m_outputFile.get(), name)) {
        KeepFailure({.text = "it is the output file as well"});
        return kLogFileUnwritable;
    }
    if (!open(m_logFile, name)) {
        KeepFailure({.systemError = errno});
        return kLogFileUnwritable;
    }
    char banner[64] = "";
    int length = 0;
    gtvers(banner, &length);
    appendText(m_logFile.get(), "QUILLMARK: ");
    appendText(m_logFile.get(), {banner, static_cast<std::size_t>(length)});
    appendText(m_logFile.get(), "\n\n");
    return 0;
}

int NCScan::CloseFiles() noexcept {
    int result = 0;
    detachOutputs();
    if (!m_logFile.closeCompletely()) {
        KeepFailure({.systemError = errno});
        result = kLogFileUnwritable;
    }
    if (!m_outputFile.closeCompletely()) {
        KeepFailure({.systemError = errno});
        result = kOutputFileUnwritable;
    }
    return result;
}

int NCScan::run() {
    if (m_ncFile == nullptr) {
        return kNCFileUnreadable;
    }
    m_texts.reset();
    if (m_model->rules.printsTexts && m_factory != nullptr) {
        m_texts.reset(m_factory->GetTextCom());
        if (m_texts == nullptr) {
            return kMemoryExhausted;
        }
    }
    m_source = makeSource();
    if (const int code = passStartCodes(); code != 0) {
        return code;
    }
    const int code = runBlocks(*m_source);
    if (!m_wasStopped && !m_report.KnowsOfMovement()) {
        findIdleCause(code);
    }
    return code;
}

// A program that ended early may have moved later: only its bytes tell for sure.
void NCScan::findIdleCause(int code) {
    m_seen.hasOpenComment = m_report.Of(Oddity::kOpenComment).count > 0;
    const IdleScan scan(m_ncFile.get());
    m_report.SetIdle(code != 0 ? scan.Encoding()
                               : scan.CauseOf(m_seen, m_model->rules.text, ModelVocabulary(*this)));
}

std::unique_ptr<BlockSource> NCScan::makeSource() {
    TextRules& rules = m_model->rules.text;
    if (!rules.isInUse) {
        return std::make_unique<LineSource>(m_ncFile.get());
    }
    rules.skipsBlocks |= m_skipsBlocks;
    m_vocabulary = std::make_unique<ModelVocabulary>(*this);
    if (rules.language == ProgramLanguage::kNone) {
        return std::make_unique<TextSource>(m_ncFile.get(), rules, *m_vocabulary);
    }
    return std::make_unique<ProgramSource>(
        m_ncFile.get(),
        ProgramSource::Settings{
            rules,
            m_ncFileName.get(),
            m_subprogramFolders,
            {.mostBlocks = m_model->rules.mostBlocks, .givesComments = m_texts != nullptr}},
        *m_vocabulary, std::make_unique<ModelView>(*this));
}

// What they switch stays; nothing is written, and a movement code among them does not move.
int NCScan::passStartCodes() {
    const MutedOutputs muted(m_outputState.get());
    for (const std::string& start : m_model->rules.startCodes) {
        std::string line = start;
        if (const int code = passStartCode(line.data()); code != 0) {
            return refuseStart(code, start);
        }
        char nothing[] = ""; // none of them was found in the first block
        (void)findStartCodes(nothing);
    }
    return 0;
}

int NCScan::findStartCodes(char* line) {
    const AvailableCommands& commands = m_model->commands;
    int code = 0;
    for (int i = 0; code == 0 && i < commands.GetCommandCount(); ++i) {
        code = commands.GetCommand(i)->scanNC(line);
        commands.GetCommand(i)->SetNCLineStatus(FALSE);
    }
    return code;
}

int NCScan::passStartCode(char* line) {
    int code = findStartCodes(line);
    if (Control* const control = m_model->status.GetControl(); code == 0 && control != nullptr) {
        code = control->beforeMovement.Run();
        code = code != 0 ? code : control->actions.Run();
        control->BeginBlock();
    }
    return code;
}

// A code that a control refuses there is a bad value of its key.
int NCScan::refuseStart(int code, const std::string& start) {
    const Control* const control = m_model->status.GetControl();
    if (control == nullptr || control->Reason().empty()) {
        return code;
    }
    KeepFailureText("REV_START has no value '" + start + "': " + control->Reason());
    return kKeyValueUnknown;
}

int NCScan::runBlocks(BlockSource& source) {
    CommandIndex commands(m_model->commands);
    const TextRules& rules = m_model->rules.text;
    while (goesOn()) {
        if (!source.Next(block())) {
            return endBlocks(source);
        }
        beginBlock();
        const BlockText* const text = rules.isInUse ? source.Text() : nullptr;
        if (const int code = convertBlock(commands, text); code != 0) {
            noteComputing(code);
            keepRefusal();
            return code;
        }
        if (rules.endStops && hasEnded()) {
            noteHeld();
            return 0;
        }
    }
    m_wasStopped = true;
    return 0;
}

int NCScan::endBlocks(const BlockSource& source) noexcept {
    const int code = source.Code();
    if (code == 0) {
        noteHeld();
        return 0;
    }
    // A signal that asks the watch may have ended the reading as well.
    KeepFailure(source.LastFailure());
    m_wasStopped = m_failure.systemError == EINTR && !goesOn();
    return m_wasStopped ? 0 : code;
}

void NCScan::noteHeld() noexcept {
    const Control* const control = m_model->status.GetControl();
    if (control != nullptr && control->HoldsRapid()) {
        m_report.Note(Oddity::kHeldRapid, block());
    }
}

// What a control refuses there may be what a dialect that follows the program would compute.
void NCScan::noteComputing(int code) noexcept {
    if (code >= kBlockRefused && code <= kWordNotConverted &&
        m_model->rules.text.language == ProgramLanguage::kNone && looksComputed(block().Rest())) {
        m_report.Note(Oddity::kComputes, block());
    }
}

void NCScan::keepRefusal() {
    const Control* const control = m_model->status.GetControl();
    if (control != nullptr && !control->Reason().empty()) {
        KeepFailureText(control->Reason());
    }
}

bool NCScan::hasEnded() const noexcept {
    return std::ranges::any_of(m_model->rules.programEnds, &Command::WasFound);
}

void NCScan::beginBlock() noexcept {
    m_report.NotePlace(block());
    m_model->status.ForgetBlock();
    if (Control* const control = m_model->status.GetControl()) {
        control->isRunning = true;
        control->BeginBlock();
    }
    if (std::FILE* const log = m_logFile.get()) {
        appendText(log, block().Echo());
        if (block().GetPlace().isComputed) {
            appendText(log, "= ");
            appendText(log, block().Rest());
            appendText(log, "\n");
        }
    }
}

int NCScan::convertBlock(CommandIndex& commands, const BlockText* text) {
    MachineStatus& status = m_model->status;
    Block& block = status.GetBlock();
    const RecordNumber& number = *status.GetRecordNumber();
    const bool isNumbered =
        text == nullptr ? number.Cut(block.Rest()) : number.CutBeforeDigit(block.Rest());
    // The bytes of the record number and of comments may be among them: they only rule words out.
    // A text that was read has none left, and what looks so stands in quotation marks.
    const bool isCommented =
        text == nullptr && status.GetComment()->Cut(block.Rest(), block.Bytes());
    if (isCommented && status.GetComment()->WasUnterminated()) {
        m_report.Note(Oddity::kOpenComment, block);
    }
    if (isNumbered || isCommented) {
        block.TrimRest();
    }
    if (text != nullptr) {
        noteText(*text);
        writeTexts(*text);
        if (const int code = passWords(); code != 0) {
            return code;
        }
    }
    m_seen.hasText = m_seen.hasText || !block.Text().empty();
    const bool hasWords = *block.Rest() != '\0';
    m_seen.hasWords = m_seen.hasWords || hasWords;
    if (Control* const control = status.GetControl()) {
        if (const int code = control->CheckAddresses(block.Rest()); code != 0) {
            return code;
        }
    }
    if (const int code = commands.scanNC(block); code != 0) {
        return code;
    }
    m_seen.hasMoreThanEnd = m_seen.hasMoreThanEnd || (hasWords && !hasEnded());
    return computeBlock();
}

void NCScan::noteText(const BlockText& text) noexcept {
    if (text.hasOpenComment) {
        m_report.Note(Oddity::kOpenComment, block());
    }
    if (text.hasSkipMark) {
        m_report.Note(Oddity::kSkipMark, block());
    }
}

void NCScan::writeTexts(const BlockText& text) const {
    if (m_texts == nullptr) {
        return;
    }
    m_texts->WriteProgramName(text.programName);
    for (const std::string& comment : text.comments) {
        m_texts->WriteComment(comment);
    }
}

// Blocks that are not converted, and those whose words are their own, are none for the commands.
int NCScan::passWords() {
    const PassedWords& passed = m_model->rules.passed;
    if (!passed.MayHold(block().Rest())) {
        return 0;
    }
    const char separator = *m_model->status.GetDecimalSeparator();
    if (const std::string_view word = passed.FindNotConverted(block().Rest(), separator);
        !word.empty()) {
        KeepFailureText(std::string("take '").append(word).append("' out of the program"));
        return kWordNotConverted;
    }
    (void)passed.DropOwn(block().Rest());
    return 0;
}

int NCScan::computeBlock() {
    MachineStatus& status = m_model->status;
    const Block& block = status.GetBlock();
    StatementCounts& statements = m_report.Statements();
    statements.BeginBlock();
    int code = status.scanNC(status.GetBlock().Rest());
    if (*block.Rest() != '\0') {
        const RestContext context = restContext();
        warnOfRest(context);
        context.passed.DropWithoutEffect(status.GetBlock().Rest(), context.separator);
        m_report.NoteRest(block, context);
    }
    if (status.HasNotes()) {
        passNotes();
    }
    if (statements.BlockHas(StatementKind::kDroppedArc)) {
        m_report.Note(Oddity::kDroppedArc, block);
        warnIfArcWithoutCentre();
        warnOfArcShape();
    } else if (statements.BlockHas(StatementKind::kArc)) {
        warnOfArcShape();
    }
    if (code == 0 && m_outputState != nullptr && m_outputState->hasLostStatement) {
        code = kInternalError;
    }
    return code;
}

RestContext NCScan::restContext() const noexcept {
    const DialectRules& rules = m_model->rules;
    return {rules.passed, *m_model->status.GetDecimalSeparator(), rules.isLathe,
            m_report.Statements().BlockMoves()};
}

void NCScan::warnOfRest(const RestContext& context) noexcept {
    const RestScan scan(block(), context);
    m_report.WarnOfRest(block(), scan);
    if (context.hasMoved) {
        m_report.WarnOfGWord(block(), context);
    }
    for (const BlockNote note : {BlockNote::kUnknownOrigin, BlockNote::kCompensation}) {
        if (scan.Has(note)) {
            m_model->status.Note(note);
        }
    }
}

void NCScan::passNotes() {
    constexpr std::pair<BlockNote, Oddity> kNotes[] = {
        {BlockNote::kAxisNotGiven, Oddity::kAxisNotGiven},
        {BlockNote::kUnknownOrigin, Oddity::kUnknownOrigin},
        {BlockNote::kUnknownPlace, Oddity::kUnknownPlace},
        {BlockNote::kCompensation, Oddity::kCompensation},
        {BlockNote::kRotaryLimit, Oddity::kRotaryLimit},
        {BlockNote::kRotaryLimit2, Oddity::kRotaryLimit},
        {BlockNote::kHeadLength, Oddity::kHeadLength},
        {BlockNote::kCycleAside, Oddity::kCycleAside},
        {BlockNote::kRotaryFeed, Oddity::kRotaryFeed},
        {BlockNote::kNoFeed, Oddity::kNoFeed},
    };
    for (const auto& [note, oddity] : kNotes) {
        if (m_model->status.HasNote(note)) {
            m_report.Note(oddity, block());
        }
    }
    if (m_model->status.HasNote(BlockNote::kTwoMovements)) {
        warnOfTwoMovements();
    }
}

void NCScan::warnOfTwoMovements() {
    const CommandWord& word = m_model->status.GetMovementWord()->Word();
    std::string spelling = word.Text().get();
    if (word.Number() >= 0) {
        spelling += std::to_string(word.Number());
    }
    m_report.Warn(Warning::Kind::kTwoMovements, block(), spelling);
}

// The centre of such an arc is its start, so the arc is dropped or ends the process: no other block
// needs the question.
void NCScan::warnIfArcWithoutCentre() noexcept {
    const Movement* const movement = m_model->status.GetMovement();
    if (movement != nullptr && movement->arc && !movement->arc->hasCentreWord) {
        m_report.Warn(Warning::Kind::kArcWithoutCentre, block(), "");
    }
}

// An arc that was computed is none of these.
void NCScan::warnOfArcShape() noexcept {
    const Movement* const movement = m_model->status.GetMovement();
    if (movement == nullptr || !movement->arc) {
        return;
    }
    const ArcShape shape = arcShapeOf(*movement);
    if (movement->arc->hasCentreWord &&
        ArcTolerance().IsExceeded(shape.startRadius, shape.endRadius)) {
        m_report.Warn(Warning::Kind::kRadiiDiffer, block(), "");
    }
    // Less than the decimals of the output show.
    constexpr double kSameHeight = 0.000005;
    if (std::abs(shape.height) > kSameHeight) {
        m_report.Warn(Warning::Kind::kHelix, block(), "");
    }
}

void NCScan::ReportFatalArc() noexcept {
    if (block().GetPlace().number == 0) {
        return;
    }
    RestContext context = restContext();
    context.hasMoved = true;
    warnIfArcWithoutCentre();
    warnOfRest(context);
}
