#pragma once

#include "path/ToolPath.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// The smallest box along the axes around some points, mm.
struct PathBox {
    gmVector3 low;
    gmVector3 high;
    bool isEmpty = true;

    void Add(const gmVector3& point) noexcept;
    /// A whole movement from its start on; of an arc all that it reaches.
    void Add(const ToolPath& path, std::size_t movement) noexcept;
    void Add(const PathBox& box) noexcept;
};
