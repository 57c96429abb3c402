#include "cli/quillmark/InputFiles.h"

#include "cli/shared/DialectFolder.h"
#include "cli/shared/fileKind.h"
#include "driver/openAnotherStream.h"
#include "driver/returnCodes.h"
#include "paramfile/ParamScan.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isStandardInput(const std::string& name) noexcept { return name == "-"; }

// 0, or the system's reason why the file cannot be read. Only a file on a disk is opened: opening a
// pipe would take it away from who opens it next.
int reasonAgainstReading(const char* name) noexcept {
    struct stat file {};
    if (stat(name, &file) != 0) {
        return errno;
    }
    if (S_ISDIR(file.st_mode)) {
        return EISDIR;
    }
    if (!S_ISREG(file.st_mode)) {
        return access(name, R_OK) == 0 ? 0 : errno;
    }
    return FileOwner(std::fopen(name, "r")) != nullptr ? 0 : errno;
}

bool isRegular(const char* name) noexcept {
    struct stat file {};
    return stat(name, &file) == 0 && S_ISREG(file.st_mode);
}

int failWith(NCScan& scan, int code, int systemError) noexcept {
    scan.KeepFailure({.systemError = systemError});
    return code;
}

} // namespace

InputFiles::InputFiles(const char* parameter, const char* nc)
    : m_parameterName(isStandardInput(parameter) ? parameter : DialectFolder().Find(parameter)),
      m_opened(m_parameterName), m_nc(nc) {}

int InputFiles::Test(NCScan& scan) {
    if (const int code = testParameterFile(scan); code != 0) {
        return code;
    }
    const bool isProgram = looksLikeProgram(headOf(m_opened.c_str()));
    if (const int reason = isStandardInput(m_nc) ? 0 : reasonAgainstReading(m_nc); reason != 0) {
        if (isProgram && DialectFolder().Find(m_nc) != m_nc) {
            scan.KeepFailureText("it is a dialect, and '" + std::string(ParameterName()) +
                                 "' looks like an NC program: -p and -nc seem to be exchanged");
            return kNCFileUnreadable;
        }
        return failWith(scan, kNCFileUnreadable, reason);
    }
    if (isProgram) {
        scan.KeepFailureText(HasParameterFileAsProgram()
                                 ? "it looks like an NC program, and '" + std::string(m_nc) +
                                       "' like a parameter file: -p and -nc seem to be exchanged"
                                 : "it looks like an NC program");
        return kUpdateFailed;
    }
    return 0;
}

int InputFiles::TestDialect(NCScan& scan) const {
    NCScan model;
    model.SetNoOutput();
    ParamScan parameters(model);
    int code = parameters.SetParameterFile(OpenedParameterName());
    code = code != 0 ? code : parameters.run();
    const Failure& failure = model.LastFailure();
    if (code != 0 && failure.text != nullptr) {
        scan.KeepFailureText(failure.text); // the model may own it
    } else if (code != 0) {
        scan.KeepFailure(failure);
    }
    return code;
}

int InputFiles::testParameterFile(NCScan& scan) {
    if (!isStandardInput(m_parameterName)) {
        if (const int reason = reasonAgainstReading(ParameterName()); reason != 0) {
            return failWith(scan, kParameterFileUnreadable, reason);
        }
        if (isRegular(ParameterName())) {
            return 0;
        }
    }
    return copyParameterFile(scan);
}

int InputFiles::copyParameterFile(NCScan& scan) {
    constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024; // it may be endless
    const FileOwner source(isStandardInput(m_parameterName) ? openAnotherStream(STDIN_FILENO, "r")
                                                            : std::fopen(ParameterName(), "r"));
    if (source == nullptr) {
        return failWith(scan, kParameterFileUnreadable, errno);
    }
    m_copy.reset(std::tmpfile());
    if (m_copy == nullptr) {
        return failWith(scan, kNoTemporaryFile, errno);
    }
    std::array<char, 16384> buffer{};
    std::size_t size = 0;
    while (const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), source.get())) {
        size += length;
        if (size > kLargestFile) {
            scan.KeepFailure({.text = "it has more than 64 MiB"});
            return kNoTemporaryFile;
        }
        if (std::fwrite(buffer.data(), 1, length, m_copy.get()) != length) {
            return failWith(scan, kNoTemporaryFile, errno);
        }
    }
    if (std::ferror(source.get()) != 0) {
        return failWith(scan, kParameterFileUnreadable, errno);
    }
    if (std::fflush(m_copy.get()) != 0) {
        return failWith(scan, kNoTemporaryFile, errno);
    }
    m_opened = "/dev/fd/" + std::to_string(fileno(m_copy.get()));
    return 0;
}

bool InputFiles::HasParameterFileAsProgram() const { return looksLikeParameterFile(headOf(m_nc)); }
