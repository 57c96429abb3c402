#include "cli/quillmark-view/views.h"

#include <algorithm>
#include <iterator>

namespace {

// In the isometric view X, Y and Z are 120 degrees apart; it looks at the part from (1, -1, 1).
constexpr double kHalfRoot = 0.70710678118654752;  // 1 / sqrt(2)
constexpr double kSixthRoot = 0.40824829046386302; // 1 / sqrt(6)

const View kViews[] = {
    {"top", "Top", {1, 0, 0}, {0, 1, 0}},
    {"isometric",
     "Isometric",
     {kHalfRoot, kHalfRoot, 0},
     {-kSixthRoot, kSixthRoot, 2 * kSixthRoot}},
    {"front", "Front", {1, 0, 0}, {0, 0, 1}},
    {"side", "Side", {0, 1, 0}, {0, 0, 1}},
};

} // namespace

std::span<const View> allViews() noexcept { return kViews; }

const View* findView(std::string_view name) noexcept {
    const auto* const row =
        std::ranges::find_if(kViews, [name](const View& view) { return view.name == name; });
    return row == std::end(kViews) ? nullptr : row;
}
