#pragma once

#include "commands/CycleNumbers.h"
#include "commands/CycleStep.h"
#include "commands/PathMovement.h"

class Control;

/// A command that is written as the several movements of a cycle, at the place where the tool
/// stands.
class CycleMovement : public PathMovement {
public:
    ~CycleMovement() override;

protected:
    /// Both must outlive the command.
    CycleMovement(Control& control, MachineStatus& status) noexcept;

    [[nodiscard]] Control& control() const noexcept { return m_control; }

    // All of these return 0 or the code of a refusal.

    /// What has to hold for all numbers of the kind.
    int checkNumbers(const CycleKind& kind, const CycleNumbers& numbers, double repeats);
    /// Walks the steps of the kind, from the clearance on.
    int walk(const CycleKind& kind, const CycleNumbers& numbers);
    /// Moves straight, unless the tool stands there.
    int goTo(Boolean rapid, const gmVector3& point);
    /// Moves along one axis.
    int goAlong(Boolean rapid, int axis, double coordinate);

    /// The axis along the normal of the plane.
    [[nodiscard]] int normalAxis() const noexcept;
    /// A length as one in coordinates along an axis, which may be diameters.
    [[nodiscard]] double alongAxis(double length, int axis) const;
    /// The lift between pecks, likewise.
    [[nodiscard]] double liftAlong(int axis) const;
    /// The spindle command that is active, unless that is the stop; else null.
    [[nodiscard]] Command* turningSpindle() const;

private:
    int step(CycleStep step, const CycleKind& kind, const CycleNumbers& numbers);
    int toHeight(Boolean rapid, double height) { return goAlong(rapid, normalAxis(), height); }
    int peck(const CycleNumbers& numbers, bool goesOut);
    int pause(const std::optional<double>& seconds);
    int feedTo(double height, const std::optional<double>& feed);
    int useFeed(double feed);
    int shift(double length);
    int turn(CycleTurning turning, bool isBack);

    Control& m_control;
    double m_programmedFeed = 0.0; // while the steps are walked
};
