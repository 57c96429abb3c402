#pragma once

#include <csignal>

/// Looks after a conversion from outside, between two blocks: ends it early, or tells how far it
/// is. Costs one comparison for each block while nobody asks.
class BlockWatch {
public:
    BlockWatch() noexcept = default;
    BlockWatch(const BlockWatch&) = delete;
    BlockWatch& operator=(const BlockWatch&) = delete;
    virtual ~BlockWatch() = default;

    /// Whether the conversion goes on with its next block. When it does not, this stays so.
    [[nodiscard]] bool GoesOn() noexcept { return m_isAsked == 0 || decide(); }

protected:
    /// Has decide called before the next block. A signal handler may do that.
    void Ask() noexcept { m_isAsked = 1; }
    void Settle() noexcept { m_isAsked = 0; }

private:
    virtual bool decide() noexcept = 0;

    volatile std::sig_atomic_t m_isAsked = 0;
};
