#include "driver/NCScan.h"

#include "apt/appendText.h"
#include "commands/CircularMovement.h"
#include "driver/fileIdentity.h"
#include "driver/returnCodes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <cerrno>
#include <cstring>
#include <new>

NCScan::~NCScan() = default;

void NCScan::BeginConversion() {
    m_model.emplace();
    m_blockNumber = 0;
    m_continuesLine = false;
    m_block[0] = '\0';
    m_blockText[0] = '\0';
    m_report = {};
    m_failure = {};
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
        m_factory = std::make_unique<APTFactory>(m_outputFile.get(), m_logFile.get(),
                                                 &m_report.Statements());
    }
    return result;
}

void NCScan::SetNoOutput() { m_factory = std::make_unique<APTFactory>(nullptr, nullptr); }

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
    m_factory.reset();
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
    const int code = runBlocks();
    // The bytes of the last block say nothing about other lines.
    m_model->status.InitBlockBytes(ByteSet::All());
    return code;
}

int NCScan::runBlocks() {
    if (m_ncFile == nullptr) {
        return kNCFileUnreadable;
    }
    LineReader lines(m_ncFile.get());
    CommandIndex commands(m_model->commands);
    std::string_view piece;
    while (lines.Next(piece)) {
        beginBlock(piece);
        if (const int code = convertBlock(commands); code != 0) {
            return code;
        }
    }
    if (lines.HasFailed()) {
        KeepFailure({.systemError = lines.Error()});
        return kNCFileUnreadable;
    }
    return 0;
}

// A line that does not fit is read in pieces, each a block of its own.
void NCScan::beginBlock(std::string_view piece) noexcept {
    if (!m_continuesLine) {
        ++m_blockNumber;
    } else {
        m_report.NoteFurtherPiece(m_blockNumber, piece.front() == '\n' || piece.front() == '\r');
    }
    const bool hasNewline = piece.back() == '\n';
    m_continuesLine = piece.size() == LineReader::kMostBytes && !hasNewline;
    piece.remove_suffix(hasNewline ? 1 : 0);
    if (const std::size_t nul = piece.find('\0'); nul != std::string_view::npos) {
        piece = piece.substr(0, nul);
        m_report.Note(Oddity::kNulByte, m_blockNumber);
    }
    const std::string_view text = trimmed(piece);
    m_blockLength = text.size();
    for (Block* const copy : {&m_block, &m_blockText}) {
        std::memcpy(copy->data(), text.data(), text.size());
        (*copy)[text.size()] = '\0';
    }
    if (std::FILE* const log = m_logFile.get()) {
        appendText(log, "\n");
        appendText(log, text);
        appendText(log, "\n");
    }
}

int NCScan::convertBlock(CommandIndex& commands) {
    char* const block = m_block.data();
    MachineStatus& status = m_model->status;
    if (const int code = status.GetRecordNumber()->DeleteRecordNumber(block); code != 0) {
        return code;
    }
    // Record number and comment may go into the set: it only rules words out.
    const ByteSet bytes = ByteSet::Of({BlockText(), m_blockLength});
    if (const int code = status.GetComment()->KillComments(block, bytes); code != 0) {
        return code;
    }
    if (status.GetComment()->WasUnterminated()) {
        m_report.Note(Oddity::kOpenComment, m_blockNumber);
    }
    if (const std::size_t length = std::strlen(block); length != m_blockLength) {
        trimText(block, length);
    }
    status.InitBlockBytes(bytes);
    const int code = commands.scanNC(block, bytes);
    return code != 0 ? code : computeBlock(block);
}

int NCScan::computeBlock(char* block) {
    MachineStatus& status = m_model->status;
    StatementCounts& statements = m_report.Statements();
    statements.BeginBlock();
    const int code = status.scanNC(block);
    if (*block != '\0') {
        m_report.NoteRest(m_blockNumber, BlockText(), block, *status.GetDecimalSeparator(),
                          statements.BlockMoves());
    }
    if (statements.BlockHas(StatementKind::kDroppedArc)) {
        m_report.Note(Oddity::kDroppedArc, m_blockNumber);
        warnIfArcWithoutCentre();
    }
    return code;
}

// The centre of such an arc is its start, so the arc is dropped or ends the process: no other block
// needs the question.
void NCScan::warnIfArcWithoutCentre() noexcept {
    const Command* const active = m_model->status.GetMovementCom()->GetActiveCommand();
    const auto* const arc = dynamic_cast<const CircularMovement*>(active);
    if (arc != nullptr && !arc->HasCentreWord()) {
        m_report.WarnOfArc(m_blockNumber, BlockText());
    }
}

void NCScan::ReportFatalArc() noexcept {
    if (m_blockNumber == 0) {
        return;
    }
    warnIfArcWithoutCentre();
    m_report.WarnOfGWord(m_blockNumber, BlockText(), m_block.data(),
                         *m_model->status.GetDecimalSeparator());
}
