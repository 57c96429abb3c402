#pragma once

#include "commands/Plane.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <array>

class Control;

/// What the coordinates of the program mean at a time: whoever keeps numbers for later blocks keeps
/// it beside them, since the numbers would mean something else after a change.
class CoordinateMark {
public:
    CoordinateMark() noexcept = default;
    explicit CoordinateMark(const Control& control);

    /// What has changed since; empty when nothing has.
    [[nodiscard]] const char* ChangeSince(const CoordinateMark& before) const;

private:
    Plane m_plane = Plane::kXY;
    bool m_isInch = false;
    std::size_t m_system = 0;        // whose origin nobody may know
    std::array<gmVector3, 4> m_axes; // origin and the ends of the axes, where they lie
};
