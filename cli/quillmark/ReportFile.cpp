#include "cli/quillmark/ReportFile.h"

#include "driver/fileIdentity.h"
#include "driver/openAnotherStream.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

const char* ReportFile::Open(const char* name, std::span<const Other> others) noexcept {
    const bool isStream = std::strcmp(name, "-") == 0;
    struct stat before {};
    const bool isNew = !isStream && lstat(name, &before) != 0 && errno == ENOENT;
    // Appending leaves the file as it is until it is known not to be another file of the run. It
    // exists from here on, so names of files that are yet to be made compare as well.
    m_file.reset(isStream ? openAnotherStream(STDOUT_FILENO, "w") : std::fopen(name, "ae"));
    if (m_file == nullptr) {
        return std::strerror(errno);
    }
    for (const Other& other : others) {
        if (!isSameRegularFile(m_file.get(), other.name)) {
            continue;
        }
        m_file.reset();
        if (isNew) {
            (void)unlink(name);
        }
        return other.objection;
    }
    // A pipe or a terminal has nothing to cut off, and what stands on standard output stays.
    struct stat now {};
    if (!isStream && fstat(fileno(m_file.get()), &now) == 0 && S_ISREG(now.st_mode) &&
        ftruncate(fileno(m_file.get()), 0) != 0) {
        return std::strerror(errno);
    }
    return nullptr;
}

const char* ReportFile::Close() noexcept {
    errno = 0;
    const bool isWritten = std::fflush(m_file.get()) == 0 && std::ferror(m_file.get()) == 0;
    const int reason = errno;
    const bool isClosed = std::fclose(m_file.release()) == 0;
    if (isWritten && isClosed) {
        return nullptr;
    }
    return std::strerror(isWritten ? errno : (reason != 0 ? reason : EIO));
}
