#include "cli/quillmark-param/ParamInput.h"

#include "cli/quillmark-param/paramMessages.h"
#include "cli/shared/DialectFolder.h"
#include "cli/shared/printDialects.h"
#include "paramfile/ParamScan.h"
#include "paramfile/fileLines.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;

} // namespace

int ParamInput::Read(const char* name) {
    const bool isStandardInput = std::strcmp(name, "-") == 0;
    m_name = isStandardInput ? "standard input" : DialectFolder().Find(name);
    const FileOwner file(isStandardInput ? nullptr : std::fopen(Name(), "rb"));
    std::FILE* const source = isStandardInput ? stdin : file.get();
    std::array<char, 16384> buffer{};
    while (source != nullptr) {
        const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), source);
        if (length == 0) {
            break;
        }
        m_content.append(buffer.data(), length);
        // Neither gets better with what follows, and the input may be endless.
        if (m_content.size() > kLargestFile ||
            std::memchr(buffer.data(), '\0', length) != nullptr) {
            break;
        }
    }
    if (source == nullptr || std::ferror(source) != 0) {
        const bool isMissing = source == nullptr && errno == ENOENT;
        const int status = failWith(Name(), "cannot be read: " + std::string(std::strerror(errno)));
        if (isMissing) {
            printNearestDialect(stderr, "quillmark-param", Name());
        }
        return status;
    }
    if (m_content.empty()) {
        return failWith(Name(), "the file is empty");
    }
    const auto zero = std::find(m_content.begin(), m_content.end(), '\0');
    if (zero != m_content.end()) {
        const auto line = std::count(m_content.begin(), zero, '\n') + 1;
        return failWith(Name(),
                        "no parameter file: line " + std::to_string(line) + " holds a byte 0");
    }
    if (m_content.size() > kLargestFile) {
        return failWith(Name(), "no parameter file: it has more than 64 MiB");
    }
    return kParamDone;
}

FileOwner ParamInput::Open() const noexcept {
    FileOwner file(std::tmpfile());
    if (file == nullptr ||
        std::fwrite(m_content.data(), 1, m_content.size(), file.get()) != m_content.size() ||
        std::fseek(file.get(), 0, SEEK_SET) != 0) {
        return nullptr;
    }
    return file;
}

CharFeldOwner ParamInput::Lines() const {
    // Opened for reading only, the stream leaves the content alone.
    const FileOwner file(fmemopen(const_cast<char*>(m_content.data()), m_content.size(), "r"));
    CharFeldOwner lines;
    if (file == nullptr || readFileLines(file.get(), lines) != 0) {
        throw std::bad_alloc();
    }
    return lines;
}

std::string_view ParamInput::Head() const noexcept {
    constexpr std::size_t kHeadSize = 4096;
    return std::string_view(m_content).substr(0, kHeadSize);
}

bool ParamInput::IsCurrentFormat() const {
    constexpr std::size_t kLongestFirstLine = 255; // as the scan of parameter files reads it
    const std::size_t end = std::min(m_content.find('\n'), kLongestFirstLine);
    return ParamScan::IsCurrentFormat(m_content.substr(0, end).c_str());
}
