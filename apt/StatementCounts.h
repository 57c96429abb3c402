#pragma once

#include <array>
#include <cstddef>

/// What a writer was asked for, as far as it is counted. The first three write motion statements.
enum class StatementKind : std::size_t {
    kRapidMove,
    kFeedMove,
    kArc,
    kDroppedArc, ///< an arc of radius 0, of which nothing is written
    kToolAxis,
    kFeedRate,
    kSpindle,
    kCoolant,
    kTool,
    kMode,
    kProgramEnd,
    kText,
    kDelay,
    kUnits,
    kCompensation,
    kStop,
    kHome,
    kCount
};

/// How often each kind was written in one conversion, and which ones in the block at hand.
class StatementCounts {
public:
    void BeginBlock() noexcept { m_kindsOfBlock = 0; }
    void Count(StatementKind kind) noexcept {
        ++m_counts[static_cast<std::size_t>(kind)];
        m_kindsOfBlock |= bitOf(kind);
    }
    [[nodiscard]] long Of(StatementKind kind) const noexcept {
        return m_counts[static_cast<std::size_t>(kind)];
    }
    [[nodiscard]] bool BlockHas(StatementKind kind) const noexcept {
        return (m_kindsOfBlock & bitOf(kind)) != 0;
    }
    [[nodiscard]] bool BlockMoves() const noexcept {
        return BlockHas(StatementKind::kRapidMove) || BlockHas(StatementKind::kFeedMove) ||
               BlockHas(StatementKind::kArc);
    }

private:
    static_assert(static_cast<unsigned>(StatementKind::kCount) <= 32, "a bit for each kind");

    [[nodiscard]] static constexpr unsigned bitOf(StatementKind kind) noexcept {
        return 1U << static_cast<unsigned>(kind);
    }

    std::array<long, static_cast<std::size_t>(StatementKind::kCount)> m_counts = {};
    unsigned m_kindsOfBlock = 0;
};
