#include "fuzz/MemoryFile.h"

#include <cstdio>
#include <cstdlib>
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
