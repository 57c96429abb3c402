#include "tests/faults/Fault.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <unistd.h>
#include <utility>

using enum FaultKind;

namespace {

Fault* g_armed = nullptr;

constexpr int kReasons[] = {ENOMEM, ENOMEM, EMFILE, EIO, ENOSPC, EIO};

} // namespace

Fault::Fault(FaultKind kind, long index, std::function<void()> action)
    : m_kind(kind), m_left(index), m_action(std::move(action)) {
    g_armed = this;
}

Fault::~Fault() { g_armed = nullptr; }

bool Fault::isArmed() noexcept { return g_armed != nullptr; }

bool Fault::strikes(FaultKind kind) {
    const bool isForGood = isArmed() && g_armed->m_kind == kMemoryForGood;
    if (!isArmed() || kind != (isForGood ? kMemory : g_armed->m_kind)) {
        return false;
    }
    const long left = g_armed->m_left--;
    if (left > 0 || (left < 0 && !isForGood)) {
        return false;
    }
    if (g_armed->m_action) {
        g_armed->m_action();
        return false;
    }
    errno = kReasons[static_cast<std::size_t>(kind)];
    return true;
}

// The linker sends the calls of every object in the test to __wrap_NAME; __real_NAME is the C
// library's.
#define MAY_FAIL(kind, failure, result, name, parameters, otherwise)                               \
    extern "C" result __real_##name parameters;                                                    \
    extern "C" result __wrap_##name parameters {                                                   \
        return Fault::strikes(kind) ? failure : otherwise;                                         \
    }

MAY_FAIL(kMemory, nullptr, void*, malloc, (std::size_t size), __real_malloc(size))
MAY_FAIL(kMemory, nullptr, void*, calloc, (std::size_t n, std::size_t size), __real_calloc(n, size))
MAY_FAIL(kMemory, nullptr, void*, realloc, (void* old, std::size_t size), __real_realloc(old, size))
MAY_FAIL(kMemory, nullptr, char*, strdup, (const char* text), __real_strdup(text))
MAY_FAIL(kMemory, nullptr, char*, strndup, (const char* text, std::size_t n),
         __real_strndup(text, n))
MAY_FAIL(kOpen, -1, int, dup, (int descriptor), __real_dup(descriptor))

// Sanitizers bring all forms of new and delete, so all have to be replaced.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return __wrap_malloc(size);
}
void* operator new(std::size_t size) {
    void* const block = __wrap_malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return __wrap_malloc(size);
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { std::free(block); }

namespace {

// A stream whose reads, writes and seeks pass through here.
struct Tapped {
    std::FILE* stream; // what its user has; null for a free entry
    std::FILE* inner;
    std::array<char, kStreamBuffer> buffer;
};
std::array<Tapped, 16> g_tapped{};

int descriptorOf(void* tapped) { return fileno(static_cast<Tapped*>(tapped)->inner); }

ssize_t readTapped(void* tapped, char* bytes, std::size_t size) {
    return Fault::strikes(kRead) ? -1 : read(descriptorOf(tapped), bytes, size);
}

// The C library takes 0 for the failure of a write.
ssize_t writeTapped(void* tapped, const char* bytes, std::size_t size) {
    return Fault::strikes(kWrite) ? 0 : write(descriptorOf(tapped), bytes, size);
}

int seekTapped(void* tapped, off64_t* offset, int origin) {
    if (Fault::strikes(kSeek)) {
        return -1;
    }
    const off64_t position = lseek64(descriptorOf(tapped), *offset, origin);
    *offset = position;
    return position < 0 ? -1 : 0;
}

int closeTapped(void* tapped) {
    static_cast<Tapped*>(tapped)->stream = nullptr;
    return std::fclose(static_cast<Tapped*>(tapped)->inner);
}

extern "C" int __real_setvbuf(std::FILE* stream, char* buffer, int mode, std::size_t size);

std::FILE* tap(std::FILE* inner, const char* mode) {
    if (inner == nullptr || !Fault::isArmed()) {
        return inner;
    }
    for (Tapped& entry : g_tapped) {
        if (entry.stream == nullptr) {
            entry.inner = inner;
            entry.stream =
                fopencookie(&entry, mode, {readTapped, writeTapped, seekTapped, closeTapped});
            (void)__real_setvbuf(entry.stream, entry.buffer.data(), _IOFBF, entry.buffer.size());
            return entry.stream;
        }
    }
    std::abort();
}

} // namespace

MAY_FAIL(kOpen, nullptr, std::FILE*, fopen, (const char* name, const char* mode),
         tap(__real_fopen(name, mode), mode))
MAY_FAIL(kOpen, nullptr, std::FILE*, fdopen, (int descriptor, const char* mode),
         tap(__real_fdopen(descriptor, mode), mode))
MAY_FAIL(kOpen, nullptr, std::FILE*, tmpfile, (), tap(__real_tmpfile(), "w+"))

extern "C" {
// A buffer of the library's own would leave few reads and writes to fail.
int __wrap_setvbuf(std::FILE* stream, char* buffer, int mode, std::size_t size) {
    return Fault::isArmed() ? 0 : __real_setvbuf(stream, buffer, mode, size);
}
int __real_fileno(std::FILE* stream);
int __wrap_fileno(std::FILE* stream) {
    for (const Tapped& entry : g_tapped) {
        if (entry.stream == stream) {
            return __real_fileno(entry.inner);
        }
    }
    return __real_fileno(stream);
}
}
