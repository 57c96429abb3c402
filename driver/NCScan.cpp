#include "driver/NCScan.h"

#include "commands/TextCopy.h"
#include "driver/fileIdentity.h"
#include "driver/returnCodes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <cerrno>
#include <cstring>
#include <new>

namespace {

// True when everything written reached the file. The stream is closed in any case.
bool closeCompletely(FileOwner& file) noexcept {
    if (file == nullptr) {
        return true;
    }
    std::FILE* const stream = file.release();
    const bool isFlushed = std::fflush(stream) == 0 && std::ferror(stream) == 0;
    const int reason = errno;
    const bool isClosed = std::fclose(stream) == 0;
    if (!isFlushed) {
        errno = reason;
    }
    return isFlushed && isClosed;
}

} // namespace

NCScan::~NCScan() = default;

void NCScan::ResetModel() { m_model.emplace(); }

const char* NCScan::FailureReason() const noexcept {
    return m_systemError != 0 ? std::strerror(m_systemError) : m_failureReason;
}

void NCScan::KeepFailureReason(int systemError) noexcept {
    m_systemError = systemError;
    m_failureReason = nullptr;
}

void NCScan::KeepFailureReason(const char* reason) noexcept {
    m_systemError = 0;
    m_failureReason = reason;
}

int NCScan::SetNCFileName(const char* name) {
    m_ncFile.reset();
    m_ncFileName = copyText(name);
    if (name == nullptr) {
        return kNCFileUnreadable;
    }
    if (m_ncFileName == nullptr) {
        return kMemoryExhausted;
    }
    m_ncFile.reset(std::fopen(name, "rt"));
    if (m_ncFile == nullptr) {
        KeepFailureReason(errno);
        return kNCFileUnreadable;
    }
    if (isDirectory(m_ncFile.get())) {
        m_ncFile.reset();
        KeepFailureReason(EISDIR);
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
        KeepFailureReason(0);
        return kOutputTypeUnsupported;
    }
    if (m_outputFile != nullptr) {
        m_factory = std::make_unique<APTFactory>(m_outputFile.get(), m_logFile.get());
    }
    return result;
}

int NCScan::openOutput(const char* name) noexcept {
    m_outputFile.reset(name == nullptr ? nullptr : std::fopen(name, "wt"));
    if (m_outputFile == nullptr) {
        KeepFailureReason(name == nullptr ? 0 : errno);
        return kOutputFileUnwritable;
    }
    return 0;
}

int NCScan::openLog(const char* name) noexcept {
    m_logFile.reset();
    if (name == nullptr) {
        return 0;
    }
    if (isSameRegularFile(m_outputFile.get(), name)) {
        KeepFailureReason("it is the output file as well");
        return kLogFileUnwritable;
    }
    m_logFile.reset(std::fopen(name, "wt"));
    if (m_logFile == nullptr) {
        KeepFailureReason(errno);
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
    if (!closeCompletely(m_logFile)) {
        KeepFailureReason(errno);
        result = kLogFileUnwritable;
    }
    if (!closeCompletely(m_outputFile)) {
        KeepFailureReason(errno);
        result = kOutputFileUnwritable;
    }
    return result;
}

int NCScan::run() {
    std::FILE* const file = m_ncFile.get();
    if (file == nullptr) {
        return kNCFileUnreadable;
    }
    const int commandCount = m_model->commands.GetCommandCount();
    Block block;
    while (std::feof(file) == 0) {
        // A line that does not fit is read in pieces, each a block of its own.
        if (std::fgets(block.data(), static_cast<int>(block.size()), file) == nullptr) {
            if (std::ferror(file) != 0) {
                KeepFailureReason(errno);
                return kNCFileUnreadable;
            }
            continue;
        }
        beginBlock(block);
        if (const int code = convertBlock(block.data(), commandCount); code != 0) {
            return code;
        }
    }
    return 0;
}

void NCScan::beginBlock(Block& block) noexcept {
    if (!m_continuesLine) {
        ++m_blockNumber;
    }
    const std::size_t length = std::strlen(block.data());
    m_continuesLine = length == block.size() - 1 && block[length - 1] != '\n';
    string_mani(3, block.data());
    std::strcpy(m_blockText.data(), block.data());
    if (m_logFile != nullptr) {
        std::fprintf(m_logFile.get(), "\n%s\n", block.data());
    }
}

int NCScan::convertBlock(char* block, int commandCount) {
    MachineStatus& status = m_model->status;
    if (const int code = status.GetRecordNumber()->DeleteRecordNumber(block); code != 0) {
        return code;
    }
    if (const int code = status.GetComment()->KillComments(block); code != 0) {
        return code;
    }
    string_mani(3, block);
    for (int i = 0; i < commandCount && *block != '\0'; ++i) {
        if (*block == ' ') {
            string_mani(3, block);
        }
        Command* const command = m_model->commands.GetCommand(i);
        if (command == nullptr) {
            continue;
        }
        if (const int code = command->scanNC(block); code != 0) {
            return code;
        }
    }
    return status.scanNC(block);
}
