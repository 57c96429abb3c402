#include "fuzz/MemoryFile.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

MemoryFile::MemoryFile()
    : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC)),
      m_path("/proc/self/fd/" + std::to_string(m_descriptor)) {
    if (m_descriptor < 0) {
        std::abort();
    }
}

MemoryFile::~MemoryFile() { (void)close(m_descriptor); }

void MemoryFile::write(std::string_view bytes) {
    if (ftruncate(m_descriptor, 0) != 0 ||
        pwrite(m_descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        std::abort();
    }
}

std::string MemoryFile::read() const {
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0) {
        std::abort();
    }
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    if (pread(m_descriptor, bytes.data(), bytes.size(), 0) != status.st_size) {
        std::abort();
    }
    return bytes;
}

// Takes the place of the C library's tmpfile.
extern "C" std::FILE* __wrap_tmpfile() {
    const int descriptor = memfd_create("copy", MFD_CLOEXEC);
    return descriptor < 0 ? nullptr : fdopen(descriptor, "w+");
}

// Whatever a program or a parameter file names: nothing is read but what lies beside them.
extern "C" std::FILE* __real_fopen(const char* name, const char* mode);
extern "C" std::FILE* __wrap_fopen(const char* name, const char* mode) {
    constexpr std::string_view kFolder = "/proc/self/fd/";
    const std::string_view path = name;
    if (*mode == 'r' && (!path.starts_with(kFolder) ||
                         path.find_first_not_of("0123456789", kFolder.size()) != path.npos)) {
        std::abort();
    }
    return __real_fopen(name, mode);
}
