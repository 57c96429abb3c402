#include "driver/NCScan.h"

#include "apt/appendText.h"
#include "commands/Movement.h"
#include "driver/LineSource.h"
#include "driver/fileIdentity.h"
#include "driver/returnCodes.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

NCScan::NCScan() noexcept = default;

NCScan::~NCScan() { detachOutputs(); }

void NCScan::BeginConversion() noexcept {
    // What a host put into the model before its first conversion belongs to that.
    if (std::exchange(m_isFresh, false)) {
        return;
    }
    m_model.emplace();
    m_report = {};
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

int NCScan::SetNCFileName(const char* name) {
    m_ncFile.reset();
    m_ncFileName = TextCopy(name);
    if (name == nullptr) {
        return kNCFileUnreadable;
    }
    if (m_ncFileName.get() == nullptr) {
        return kMemoryExhausted;
    }
    m_ncFile.reset(std::fopen(name, "rt"));
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

int NCScan::openOutput(const char* name) noexcept {
    m_outputFile.close();
    if (name == nullptr || !m_outputFile.open(name)) {
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
    if (!m_logFile.open(name)) {
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
    LineSource source(m_ncFile.get());
    return runBlocks(source);
}

int NCScan::runBlocks(BlockSource& source) {
    CommandIndex commands(m_model->commands);
    while (source.Next(block())) {
        beginBlock();
        if (const int code = convertBlock(commands); code != 0) {
            return code;
        }
    }
    if (const int code = source.Code(); code != 0) {
        KeepFailure(source.LastFailure());
        return code;
    }
    return 0;
}

void NCScan::beginBlock() noexcept {
    m_report.NotePlace(block());
    m_model->status.KeepMovement(nullptr);
    if (std::FILE* const log = m_logFile.get()) {
        appendText(log, block().Echo());
    }
}

int NCScan::convertBlock(CommandIndex& commands) {
    MachineStatus& status = m_model->status;
    Block& block = status.GetBlock();
    const bool isNumbered = status.GetRecordNumber()->Cut(block.Rest());
    // The bytes of the record number and of comments may be among them: they only rule words out.
    const bool isCommented = status.GetComment()->Cut(block.Rest(), block.Bytes());
    if (isCommented && status.GetComment()->WasUnterminated()) {
        m_report.Note(Oddity::kOpenComment, block);
    }
    if (isNumbered || isCommented) {
        block.TrimRest();
    }
    const int code = commands.scanNC(block);
    return code != 0 ? code : computeBlock();
}

int NCScan::computeBlock() {
    MachineStatus& status = m_model->status;
    const Block& block = status.GetBlock();
    StatementCounts& statements = m_report.Statements();
    statements.BeginBlock();
    int code = status.scanNC(status.GetBlock().Rest());
    if (*block.Rest() != '\0') {
        m_report.NoteRest(block, *status.GetDecimalSeparator(), statements.BlockMoves());
    }
    if (statements.BlockHas(StatementKind::kDroppedArc)) {
        m_report.Note(Oddity::kDroppedArc, block);
        warnIfArcWithoutCentre();
    }
    if (code == 0 && m_outputState != nullptr && m_outputState->hasLostStatement) {
        code = kInternalError;
    }
    return code;
}

// The centre of such an arc is its start, so the arc is dropped or ends the process: no other block
// needs the question.
void NCScan::warnIfArcWithoutCentre() noexcept {
    const Movement* const movement = m_model->status.GetMovement();
    if (movement != nullptr && movement->arc && !movement->arc->hasCentreWord) {
        m_report.WarnOfArc(block());
    }
}

void NCScan::ReportFatalArc() noexcept {
    if (block().GetPlace().number == 0) {
        return;
    }
    warnIfArcWithoutCentre();
    m_report.WarnOfGWord(block(), *m_model->status.GetDecimalSeparator());
}
