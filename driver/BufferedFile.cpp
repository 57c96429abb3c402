#include "driver/BufferedFile.h"

#include "driver/openAnotherStream.h"

#include <cerrno>
#include <cstddef>
#include <new>

bool BufferedFile::open(const char* name) noexcept {
    close(); // before the same name is truncated
    return take(std::fopen(name, "wt"));
}

bool BufferedFile::openAnother(int descriptor) noexcept {
    close();
    return take(openAnotherStream(descriptor, "wt"));
}

bool BufferedFile::take(std::FILE* file) noexcept {
    constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
    m_file.reset(file);
    if (m_file == nullptr) {
        return false;
    }
    if (m_buffer == nullptr) {
        m_buffer.reset(new (std::nothrow) char[kBufferSize]);
    }
    if (m_buffer != nullptr) {
        (void)std::setvbuf(m_file.get(), m_buffer.get(), _IOFBF, kBufferSize);
    }
    return true;
}

bool BufferedFile::closeCompletely() noexcept {
    if (m_file == nullptr) {
        return true;
    }
    errno = 0;
    const bool isFlushed = std::fflush(m_file.get()) == 0;
    const bool isComplete = isFlushed && std::ferror(m_file.get()) == 0;
    // An earlier write may have failed where the flush now succeeds: the reason is lost then.
    const int reason = isFlushed ? 0 : errno;
    const bool isClosed = std::fclose(m_file.release()) == 0;
    if (!isComplete) {
        errno = reason;
    }
    return isComplete && isClosed;
}
