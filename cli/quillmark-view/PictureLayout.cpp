#include "cli/quillmark-view/PictureLayout.h"

#include "path/vectorParts.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double kPanelWidth = 620.0;
constexpr double kPanelHeight = 520.0;
constexpr double kSingleFactor = 1.6;
constexpr double kLegendWidth = 300.0;
constexpr double kHeadHeight = 50.0;
constexpr double kMargin = 16.0;
constexpr double kSmallest = 1e-3; // mm; a path may be one point

// The corners of a box in a view.
struct Extent {
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();

    [[nodiscard]] double Size() const noexcept { return std::max(high - low, kSmallest); }
    [[nodiscard]] double Middle() const noexcept { return 0.5 * (low + high); }
};

Extent extentOf(const PathBox& box, const gmVector3& direction) noexcept {
    Extent extent;
    for (int corner = 0; corner < 8; ++corner) {
        const gmVector3 point((corner & 1) != 0 ? box.high[0] : box.low[0],
                              (corner & 2) != 0 ? box.high[1] : box.low[1],
                              (corner & 4) != 0 ? box.high[2] : box.low[2]);
        const double at = dotProduct(point, direction);
        extent.low = std::min(extent.low, at);
        extent.high = std::max(extent.high, at);
    }
    return extent;
}

PathBox boxOf(const PictureContent& content) noexcept {
    PathBox box;
    for (const PictureContent::Shown& shown : content.paths) {
        for (std::size_t i = 0; i < shown.path->movements.size(); ++i) {
            box.Add(*shown.path, i);
        }
    }
    return box;
}

Panel placed(const View& view, double x, double y, double width, double height) noexcept {
    Panel panel;
    panel.view = &view;
    panel.head = {x + kMargin, y + kMargin, width - 2.0 * kMargin, kHeadHeight};
    panel.plot = {x + kMargin, y + kMargin + kHeadHeight, width - 2.0 * kMargin,
                  height - kHeadHeight - 2.0 * kMargin};
    return panel;
}

} // namespace

Panel::Place Panel::At(const gmVector3& point) const noexcept {
    return {plot.x + 0.5 * plot.width + (dotProduct(point, view->right) - left) * scale,
            plot.y + 0.5 * plot.height - (dotProduct(point, view->up) - low) * scale};
}

PictureLayout layOut(const PictureContent& content) {
    PictureLayout layout;
    layout.box = boxOf(content);
    if (content.view != nullptr) {
        layout.panels.push_back(placed(*content.view, 0.0, 0.0, kPanelWidth * kSingleFactor,
                                       kPanelHeight * kSingleFactor));
        layout.height = kPanelHeight * kSingleFactor;
    } else {
        for (const View& view : allViews()) {
            const std::size_t index = layout.panels.size();
            layout.panels.push_back(placed(view, index % 2 == 0 ? 0.0 : kPanelWidth,
                                           index < 2 ? 0.0 : kPanelHeight, kPanelWidth,
                                           kPanelHeight));
        }
        layout.height = 2.0 * kPanelHeight;
    }
    const Rectangle& last = layout.panels.back().plot;
    const double right = last.x + last.width + kMargin;
    layout.legend = {right, kMargin, kLegendWidth, layout.height - 2.0 * kMargin};
    layout.width = right + kLegendWidth + kMargin;

    layout.scale = std::numeric_limits<double>::max();
    for (Panel& panel : layout.panels) {
        const Extent across = extentOf(layout.box, panel.view->right);
        const Extent upwards = extentOf(layout.box, panel.view->up);
        panel.left = across.Middle();
        panel.low = upwards.Middle();
        // A line at the very edge is half as wide as it should be, and marks have a size.
        const double edge = 2.0 * kMargin;
        layout.scale = std::min({layout.scale, (panel.plot.width - edge) / across.Size(),
                                 (panel.plot.height - edge) / upwards.Size()});
    }
    for (Panel& panel : layout.panels) {
        panel.scale = layout.scale;
    }
    return layout;
}
