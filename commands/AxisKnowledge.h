#pragma once

#include "commands/Movement.h"

#include <limits>
#include <optional>
#include <string>

/// The stage that lets nothing be written with a coordinate that nobody knows. Such a coordinate is
/// not a number, and whatever is computed from it is none, either. A rapid movement to such a place
/// is held: the next block keeps what is known of it, so it is joined with the block that gives the
/// rest.
class AxisKnowledge {
public:
    static constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

    [[nodiscard]] static bool IsKnown(const gmVector3& point);
    /// Names the unknown axes of a point in words.
    [[nodiscard]] static std::string NameUnknown(const gmVector3& point);

    /// Keeps what has to be told ahead of the movement for the one that it is joined with.
    void Hold(Movement& movement);
    /// The movement is written, and with it what was held.
    void Release(Movement& movement) noexcept;
    /// Whether a movement was held and never joined with another.
    [[nodiscard]] bool IsHolding() const noexcept { return m_isHolding; }

private:
    std::optional<gmVector3> m_toolAxis;
    bool m_isHolding = false;
};
