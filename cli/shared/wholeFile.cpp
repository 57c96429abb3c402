#include "cli/shared/wholeFile.h"

#include "cli/shared/fileError.h"
#include "driver/fileIdentity.h"
#include "softCommon/FileOwner.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool failWriting(const char* name, const char* program, int error) {
    printFileError(program, name, "cannot be written: " + std::string(std::strerror(error)));
    return false;
}

bool copyStream(std::FILE* from, std::FILE* to) noexcept {
    if (std::fseek(from, 0, SEEK_SET) != 0) {
        return false;
    }
    std::array<char, 16384> buffer{};
    while (const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), from)) {
        if (std::fwrite(buffer.data(), 1, length, to) != length) {
            return false;
        }
    }
    return std::ferror(from) == 0 && std::fflush(to) == 0;
}

// Some file systems report a full disk only when the file is closed.
bool closed(FileOwner& file) noexcept { return std::fclose(file.release()) == 0; }

// The system's error, or 0; so below.
int writeDirectly(std::FILE* content, const char* name) {
    FileOwner out(std::fopen(name, "wb"));
    return out != nullptr && copyStream(content, out.get()) && closed(out) ? 0 : errno;
}

mode_t modeOfNewFile() noexcept {
    const mode_t mask = umask(0);
    (void)umask(mask);
    return 0666 & ~mask;
}

// Gives the new file the owner and the permissions of the one that it replaces, or those of any new
// file. Another owner is for the superuser to give, so that may fail.
bool dress(int descriptor, const struct stat* old) noexcept {
    if (old == nullptr) {
        return fchmod(descriptor, modeOfNewFile()) == 0;
    }
    const bool isOwned = fchown(descriptor, old->st_uid, old->st_gid) == 0;
    return fchmod(descriptor, old->st_mode & (isOwned ? 07777 : 0777)) == 0;
}

// A file that disappears unless it is renamed.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::filesystem::path& neighbour)
        : m_name((neighbour.parent_path() / ".quillmark-XXXXXX").string()) {
        const int descriptor = mkstemp(m_name.data());
        m_exists = descriptor >= 0;
        m_stream.reset(m_exists ? fdopen(descriptor, "wb") : nullptr);
        if (m_exists && m_stream == nullptr) {
            (void)close(descriptor);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_exists) {
            (void)unlink(m_name.c_str());
        }
    }

    [[nodiscard]] bool Fill(std::FILE* content, const struct stat* old) {
        return m_stream != nullptr && copyStream(content, m_stream.get()) &&
               dress(fileno(m_stream.get()), old) && fsync(fileno(m_stream.get())) == 0 &&
               closed(m_stream);
    }
    [[nodiscard]] bool Rename(const std::filesystem::path& target) {
        m_exists = std::rename(m_name.c_str(), target.c_str()) != 0;
        return !m_exists;
    }

private:
    std::string m_name;
    FileOwner m_stream;
    bool m_exists = false;
};

// The file that `name` leads to, which need not exist, also when it is a link: a link stays.
std::filesystem::path followLinks(const char* name, std::error_code& error) {
    constexpr int kMostLinks = 40; // as the system follows
    std::filesystem::path target = name;
    for (int i = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(target, error));
         ++i) {
        if (i == kMostLinks) {
            error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
            return target;
        }
        // An absolute link replaces the folder that it is appended to.
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
        if (error) {
            return target;
        }
    }
    return std::filesystem::weakly_canonical(target, error);
}

int replaceFile(std::FILE* content, const char* name, const struct stat* old) {
    std::error_code error;
    const std::filesystem::path target = followLinks(name, error);
    // A file that must not be written is not replaced either.
    if (error || (old != nullptr && access(target.c_str(), W_OK) != 0)) {
        return error ? error.value() : errno;
    }
    TemporaryFile file(target);
    return file.Fill(content, old) && file.Rename(target) ? 0 : errno;
}

} // namespace

bool writeWholeFile(std::FILE* content, const char* name, const char* program) {
    // "/dev/stdout" may lead to a file on a disk, which others write as well.
    if (std::strcmp(name, "-") == 0 || isSameRegularFile(stdout, name)) {
        return copyStream(content, stdout) || failWriting("standard output", program, errno);
    }
    struct stat old {};
    const bool isThere = stat(name, &old) == 0;
    const int error = isThere && !S_ISREG(old.st_mode)
                          ? writeDirectly(content, name)
                          : replaceFile(content, name, isThere ? &old : nullptr);
    return error == 0 || failWriting(name, program, error);
}
