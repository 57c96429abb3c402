#pragma once

#include "commands/ControlCommand.h"
#include "commands/Plane.h"

/// A code that chooses the plane of arcs and cycles.
class PlaneCommand final : public ControlCommand {
public:
    PlaneCommand(Control& control, Plane plane) noexcept
        : ControlCommand(control), m_plane(plane) {}
    ~PlaneCommand() override;

    int Act() override;

private:
    Plane m_plane;
};
