#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

#include <span>
#include <string_view>

/// A direction to look in: where a point of the part lies on the picture, right and up.
struct View {
    const char* name;
    const char* title;
    gmVector3 right; ///< of length 1, as the other
    gmVector3 up;
};

/// In the order in which they stand in a picture of all, row by row: the top view above the front
/// view, and beside that the view from the right.
[[nodiscard]] std::span<const View> allViews() noexcept;
/// Null when no view has the name.
[[nodiscard]] const View* findView(std::string_view name) noexcept;
