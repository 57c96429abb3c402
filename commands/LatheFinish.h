#pragma once

#include "commands/CoordinateMark.h"
#include "commands/CycleMovement.h"

/// The code that has a contour of the program followed and then leads back to where that began,
/// rapid. The program gives it twice, in front of the contour and behind it.
class LatheFinish final : public CycleMovement {
public:
    /// Both must outlive the command.
    LatheFinish(Control& control, MachineStatus& status) noexcept
        : CycleMovement(control, status) {}
    ~LatheFinish() override;

    void InitStatus(char* line) override;
    int Act() override;

private:
    std::optional<gmVector3> m_start; // of the contour that is followed
    CoordinateMark m_mark;            // of that place
};
