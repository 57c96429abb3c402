#pragma once

#include <cstdint>
#include <optional>

enum class SpindleState : std::uint8_t { kOff, kClockwise, kCounterclockwise };
enum class CoolantState : std::uint8_t { kOff, kOn, kMist };
enum class CompensationSide : std::uint8_t { kOff, kLeft, kRight };

/// What holds besides the position while the tool moves, as the statements told it last.
struct ToolState {
    double feed = 0.0;               ///< mm/min or mm/rev; 0 before the first FEDRAT
    double speed = 0.0;              ///< rev/min or m/min; it stays behind SPINDL/OFF
    double speedLimit = 0.0;         ///< rev/min, of SPINDL/MAXRPM; 0: none
    std::optional<int> tool;         ///< none before the first LOADTL
    std::optional<int> compensation; ///< number of the register, if CUTCOM named one
    bool isFeedPerTurn = false;
    bool isCuttingSpeed = false;
    SpindleState spindle = SpindleState::kOff;
    CoolantState coolant = CoolantState::kOff;
    CompensationSide side = CompensationSide::kOff;

    bool operator==(const ToolState&) const = default;

    /// Speed of the spindle in rev/min with the tool so far from the axis Z, in mm; 0 while it
    /// stands still. A cutting speed without a limit has no bound at the axis.
    [[nodiscard]] double TurnsPerMinute(double radius) const noexcept;
};
