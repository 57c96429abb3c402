#pragma once

#include <functional>

/// Kinds of calls that can fail. Streams opened while a fault is armed have buffers of
/// kStreamBuffer bytes, so that a small file takes many reads and writes.
enum class FaultKind {
    kMemory,        ///< allocations of every sort: null or std::bad_alloc
    kMemoryForGood, ///< the same, and all further ones
    kOpen,          ///< fopen, fdopen, tmpfile, dup: EMFILE
    kRead,          ///< reads of a stream: EIO
    kWrite,         ///< writes of a stream: ENOSPC
    kSeek           ///< moves of a stream's position: EIO
};

inline constexpr std::size_t kStreamBuffer = 64;

/// While it lives, the call number `index` of its kind, from 0, fails once, after which everything
/// works again unless the kind says otherwise. With an `action` the call does that first and then
/// succeeds.
class Fault {
public:
    Fault(FaultKind kind, long index, std::function<void()> action = nullptr);
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
    ~Fault();

    /// Whether the call was reached.
    [[nodiscard]] bool happened() const noexcept { return m_left < 0; }

    /// Used by the calls themselves: whether this one, of the armed kind, is to fail.
    [[nodiscard]] static bool strikes(FaultKind kind);
    [[nodiscard]] static bool isArmed() noexcept;

private:
    FaultKind m_kind;
    long m_left;
    std::function<void()> m_action;
};
