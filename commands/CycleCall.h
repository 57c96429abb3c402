#pragma once

#include "commands/CycleCalls.h"
#include "commands/CycleMovement.h"

/// What the arguments of a called cycle mean behind those that all have: retract plane, reference
/// plane, safety distance, depth, depth relative to the reference plane.
enum class CycleArgument {
    kDwell,
    kFirstDepth,
    kFirstDepthRelative,
    kDegression,
    kDwellAtStart,
    kFirstFeedFactor,
    kLiftsOut,
    kFeedDown,
    kFeedUp
};

/// A kind of cycle as it is called.
struct CycleCallKind {
    const char* name; ///< in the parameter file
    const CycleKind* kind;
    std::span<const CycleArgument> arguments;
};

/// A cycle with arguments by place, "CYCLE81(2,0,2,-10)": it drills where the tool stands.
class CycleCall final : public CycleMovement {
public:
    /// All must outlive the command.
    CycleCall(Control& control, MachineStatus& status, const CycleCallKind& kind) noexcept
        : CycleMovement(control, status), m_kind(kind) {}
    ~CycleCall() override;

    /// The kind of that name; null when there is none.
    [[nodiscard]] static const CycleCallKind* FindKind(std::string_view name) noexcept;

    void InitStatus(char* line) override;
    int Act() override;
    /// Of the next Act. Throws std::bad_alloc.
    void SetArguments(const CycleCalls::Arguments& arguments,
                      const std::optional<CoordinateMark>& mark) {
        m_arguments = arguments;
        m_mark = mark;
    }

private:
    /// The value at a place or of a meaning; none where it is left out.
    [[nodiscard]] std::optional<double> given(std::size_t place) const noexcept;
    [[nodiscard]] std::optional<double> given(CycleArgument argument) const noexcept;
    /// The same, and 0 where it is left out.
    [[nodiscard]] double argument(auto which) const noexcept { return given(which).value_or(0.0); }
    int settle(CycleNumbers& numbers) const;
    int settlePecks(double reference, CycleNumbers& numbers) const;
    int settleFeeds(CycleNumbers& numbers) const;
    int refuse(const char* reason) const;

    const CycleCallKind& m_kind;
    CycleCalls::Arguments m_arguments;
    std::optional<CoordinateMark> m_mark; // where a modal call was given
};
