#include "driver/NCScan.h"

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
    m_blockText[0] = '\0';
    m_failure = {};
}

bool NCScan::IsOwnOutput(std::FILE* file) const noexcept {
    return isSameRegularFile(file, m_outputFile.get()) || isSameRegularFile(file, m_logFile.get());
}

int NCScan::SetNCFileName(const char* name) {
    m_ncFile.close();
    m_ncFileName = TextCopy(name);
    if (name == nullptr) {
        return kNCFileUnreadable;
    }
    if (m_ncFileName.get() == nullptr) {
        return kMemoryExhausted;
    }
    if (!m_ncFile.open(name, "rt")) {
        KeepFailure({.systemError = errno});
        return kNCFileUnreadable;
    }
    if (isDirectory(m_ncFile.get())) {
        m_ncFile.close();
        KeepFailure({.systemError = EISDIR});
        return kNCFileUnreadable;
    }
    if (IsOwnOutput(m_ncFile.get())) {
        m_ncFile.close();
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
        m_factory = std::make_unique<APTFactory>(m_outputFile.get(), m_logFile.get());
    }
    return result;
}

void NCScan::SetNoOutput() { m_factory = std::make_unique<APTFactory>(nullptr, nullptr); }

int NCScan::openOutput(const char* name) noexcept {
    m_outputFile.close();
    if (name == nullptr || !m_outputFile.open(name, "wt")) {
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
    if (!m_logFile.open(name, "wt")) {
        KeepFailure({.systemError = errno});
        return kLogFileUnwritable;
    }
    char banner[64] = "";
    int length = 0;
    gtvers(banner, &length);
    std::fprintf(m_logFile.get(), "QUILLMARK: %.*s\n\n", length, banner);
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
    std::FILE* const file = m_ncFile.get();
    if (file == nullptr) {
        return kNCFileUnreadable;
    }
    CommandIndex commands(m_model->commands);
    Block block;
    while (std::feof(file) == 0) {
        // A line that does not fit is read in pieces, each a block of its own. Only a full piece
        // has its end in the last byte.
        block.back() = '\n';
        if (fgets_unlocked(block.data(), static_cast<int>(block.size()), file) == nullptr) {
            if (std::ferror(file) != 0) {
                KeepFailure({.systemError = errno});
                return kNCFileUnreadable;
            }
            continue;
        }
        beginBlock(block);
        if (const int code = convertBlock(block.data(), commands); code != 0) {
            return code;
        }
    }
    return 0;
}

void NCScan::beginBlock(Block& block) noexcept {
    if (!m_continuesLine) {
        ++m_blockNumber;
    }
    m_continuesLine = block.back() == '\0' && block[block.size() - 2] != '\n';
    m_blockLength = trimText(block.data());
    std::memcpy(m_blockText.data(), block.data(), m_blockLength + 1);
    if (std::FILE* const log = m_logFile.get()) {
        (void)putc_unlocked('\n', log);
        (void)fwrite_unlocked(block.data(), 1, m_blockLength, log);
        (void)putc_unlocked('\n', log);
    }
}

int NCScan::convertBlock(char* block, CommandIndex& commands) {
    MachineStatus& status = m_model->status;
    if (const int code = status.GetRecordNumber()->DeleteRecordNumber(block); code != 0) {
        return code;
    }
    // Record number and comment may go into the set: it only rules words out.
    const ByteSet bytes = ByteSet::Of(block);
    if (const int code = status.GetComment()->KillComments(block, bytes); code != 0) {
        return code;
    }
    if (std::strlen(block) != m_blockLength) {
        string_mani(3, block);
    }
    status.InitBlockBytes(bytes);
    const int code = commands.scanNC(block, bytes);
    return code != 0 ? code : status.scanNC(block);
}
