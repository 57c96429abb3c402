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
    kCount
};

/// How often each kind was written in one conversion.
class StatementCounts {
public:
    void Count(StatementKind kind) noexcept { ++m_counts[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] long Of(StatementKind kind) const noexcept {
        return m_counts[static_cast<std::size_t>(kind)];
    }
    /// Moves and arcs that were written.
    [[nodiscard]] long Motions() const noexcept {
        return Of(StatementKind::kRapidMove) + Of(StatementKind::kFeedMove) +
               Of(StatementKind::kArc);
    }

private:
    std::array<long, static_cast<std::size_t>(StatementKind::kCount)> m_counts = {};
};
