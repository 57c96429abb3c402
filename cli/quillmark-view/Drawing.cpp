#include "cli/quillmark-view/Drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numbers>
#include <tuple>
#include <utility>

namespace {

constexpr double kThin = 1.0;
constexpr double kCutting = 1.6;
constexpr double kBeneath = 4.5; // of the second path, so that the first is seen on it
constexpr double kTextSize = 14.0;
constexpr double kRowHeight = 24.0;
constexpr double kSampleWidth = 44.0;
constexpr double kIndent = kSampleWidth + 12.0;
constexpr double kNear = 0.25;       // points that nobody tells apart
constexpr double kFlat = 0.1;        // by which a line may leave an arc
constexpr double kAxisLength = 16.0; // of a tool axis
constexpr double kAxisGap = 14.0;
// One stroke of many pieces takes far longer than many strokes.
constexpr int kMostPieces = 200;
// Above so many, smooth edges take minutes and nobody sees them.
constexpr std::size_t kManyMovements = 200000;
constexpr std::array<double, 2> kDashes{6.0, 4.0};

std::string numberText(double value) {
    char text[64];
    (void)std::snprintf(text, sizeof text, "%.6g", value == 0.0 ? 0.0 : value);
    return text;
}

// A text that the canvas takes whatever the name of the file is.
std::string plain(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c < ' ' || c > '~'; }, '?');
    return text;
}

// 1, 2 or 5 times a power of ten, the largest that is not longer than `most`.
double roundLength(double most) noexcept {
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    for (const double factor : {5.0, 2.0}) {
        if (factor * power <= most) {
            return factor * power;
        }
    }
    return power;
}

} // namespace

// Colours that also those tell apart who do not see all of them.
const Drawing::Colour Drawing::kTools[] = {
    {0.00, 0.45, 0.70}, {0.84, 0.37, 0.00}, {0.00, 0.62, 0.45}, {0.80, 0.47, 0.65},
    {0.34, 0.71, 0.91}, {0.90, 0.62, 0.00}, {0.30, 0.30, 0.30}, {0.55, 0.35, 0.17},
};
const Drawing::Colour Drawing::kInk{0.13, 0.13, 0.13};
const Drawing::Colour Drawing::kFaint{0.55, 0.55, 0.55};

Drawing::Drawing(cairo_t* canvas, const PictureContent& content, const PictureLayout& layout)
    : m_canvas(canvas), m_content(content), m_layout(layout) {
    for (const PictureContent::Shown& shown : content.paths) {
        for (const ToolMovement& movement : shown.path->movements) {
            const std::optional<int>& tool = shown.path->StateOf(movement).tool;
            if (!movement.IsRapid() && std::ranges::find(m_tools, tool) == m_tools.end()) {
                m_tools.push_back(tool);
            }
        }
    }
}

void Drawing::Draw() {
    cairo_set_source_rgb(m_canvas, 1.0, 1.0, 1.0);
    cairo_paint(m_canvas);
    cairo_set_line_join(m_canvas, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(m_canvas, CAIRO_LINE_CAP_BUTT);
    for (const Panel& panel : m_layout.panels) {
        drawPanel(panel);
    }
    drawLegend();
}

// Cutting movements lie above those at rapid, and the first path above the second.
void Drawing::drawPanel(const Panel& panel) {
    drawHead(panel);
    const Rectangle& plot = panel.plot;
    cairo_rectangle(m_canvas, plot.x, plot.y, plot.width, plot.height);
    stroke(kFaint, 0.5, false);
    cairo_save(m_canvas);
    cairo_rectangle(m_canvas, plot.x, plot.y, plot.width, plot.height);
    cairo_clip(m_canvas);
    if (std::ranges::any_of(m_content.paths, [](const PictureContent::Shown& shown) {
            return shown.path->movements.size() > kManyMovements;
        })) {
        cairo_set_antialias(m_canvas, CAIRO_ANTIALIAS_NONE);
    }
    for (const auto draw : {&Drawing::drawRapids, &Drawing::drawCutting}) {
        for (std::size_t index = m_content.paths.size(); index-- > 0;) {
            (this->*draw)(panel, index);
        }
    }
    for (const PictureContent::Shown& shown : m_content.paths) {
        drawAxes(panel, *shown.path);
    }
    drawDifference(panel);
    cairo_restore(m_canvas);
}

// The title, and the axes of the part as they lie in the view.
void Drawing::drawHead(const Panel& panel) {
    constexpr double kLength = 18.0;
    constexpr double kShortest = 0.2; // of an axis that points at the viewer
    text(panel.head.x, panel.head.y + 30.0, panel.view->title, panel.head.width / 2.0, true);
    const double x = panel.head.x + panel.head.width - 40.0;
    const double y = panel.head.y + 28.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double right = panel.view->right[axis];
        const double up = panel.view->up[axis];
        if (std::hypot(right, up) < kShortest) {
            continue;
        }
        cairo_move_to(m_canvas, x, y);
        cairo_line_to(m_canvas, x + right * kLength, y - up * kLength);
        stroke(kInk, kThin, false);
        text(x + right * (kLength + 9.0) - 4.0, y - up * (kLength + 8.0) + 5.0,
             std::string(1, "XYZ"[axis]), kLength);
    }
}

// Each begins at the same of its ends whichever way it goes: the dashes of ways there and back
// would fill each other's gaps. Ways shorter than a dash go on in the dashes of the one before.
void Drawing::drawRapids(const Panel& panel, std::size_t index) {
    const ToolPath& path = *m_content.paths[index].path;
    const Colour colour = isComparison() ? colourOf(index, {}) : kFaint;
    int pieces = 0;
    Panel::Place last{-kDashes[0], -kDashes[0]};
    for (std::size_t i = 0; i < path.movements.size(); ++i) {
        if (!path.movements[i].IsRapid()) {
            continue;
        }
        Panel::Place from = panel.At(path.StartOf(i));
        Panel::Place to = panel.At(path.movements[i].end);
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (length < kNear) {
            continue;
        }
        const bool isShort = length < kDashes[0] + kDashes[1];
        if (!isShort && std::tie(to.x, to.y) < std::tie(from.x, from.y)) {
            std::swap(from, to);
        }
        const bool goesOn = isShort && std::hypot(from.x - last.x, from.y - last.y) < kNear;
        last = to;
        if (!goesOn) {
            cairo_move_to(m_canvas, from.x, from.y);
        }
        cairo_line_to(m_canvas, to.x, to.y);
        if (++pieces % kMostPieces == 0) {
            stroke(colour, kThin, true);
            last = {-kDashes[0], -kDashes[0]};
        }
    }
    stroke(colour, kThin, true);
}

void Drawing::drawCutting(const Panel& panel, std::size_t index) {
    const ToolPath& path = *m_content.paths[index].path;
    std::optional<int> tool;
    bool isOpen = false;
    const auto finish = [&] {
        if (isOpen) {
            stroke(colourOf(index, tool), index > 0 ? kBeneath : kCutting, false);
        }
        isOpen = false;
    };
    for (std::size_t i = 0; i < path.movements.size(); ++i) {
        const ToolMovement& movement = path.movements[i];
        if (movement.IsRapid() || movement.startsAnew) {
            finish();
            continue;
        }
        if (isOpen && (path.StateOf(movement).tool != tool || m_pieces > kMostPieces)) {
            finish();
        }
        if (!isOpen) {
            isOpen = true;
            tool = path.StateOf(movement).tool;
            moveTo(panel, path.StartOf(i));
        }
        if (movement.IsArc()) {
            addArc(panel, path, i);
        }
        const bool isLast = i + 1 == path.movements.size() || path.movements[i + 1].IsRapid();
        lineTo(panel, movement.end, isLast);
    }
    finish();
}

void Drawing::moveTo(const Panel& panel, const gmVector3& point) {
    m_last = panel.At(point);
    m_pieces = 0;
    cairo_move_to(m_canvas, m_last.x, m_last.y);
}

void Drawing::lineTo(const Panel& panel, const gmVector3& point, bool isLast) {
    const Panel::Place place = panel.At(point);
    if (!isLast && std::hypot(place.x - m_last.x, place.y - m_last.y) < kNear) {
        return;
    }
    m_last = place;
    ++m_pieces;
    cairo_line_to(m_canvas, place.x, place.y);
}

// The points between its ends.
void Drawing::addArc(const Panel& panel, const ToolPath& path, std::size_t movement) {
    constexpr double kMostSteps = 360.0;
    const Sweep sweep = path.SweepOf(movement);
    const double radius = std::max(sweep.from.length() * panel.scale, kFlat);
    const double step = 2.0 * std::acos(1.0 - kFlat / radius);
    const int steps = static_cast<int>(std::clamp(std::ceil(sweep.angle / step), 2.0, kMostSteps));
    for (int i = 1; i < steps; ++i) {
        lineTo(panel, sweep.PointAt(sweep.angle * i / steps), false);
    }
}

void Drawing::drawAxes(const Panel& panel, const ToolPath& path) {
    if (!path.isMultiAxis) {
        return;
    }
    Panel::Place last{-kAxisGap, -kAxisGap};
    int lines = 0;
    for (const ToolMovement& movement : path.movements) {
        const Panel::Place place = panel.At(movement.end);
        if (movement.IsRapid() || std::hypot(place.x - last.x, place.y - last.y) < kAxisGap) {
            continue;
        }
        last = place;
        const gmVector3 tip = movement.end + path.axes[movement.axis] * (kAxisLength / panel.scale);
        const Panel::Place end = panel.At(tip);
        cairo_move_to(m_canvas, place.x, place.y);
        cairo_line_to(m_canvas, end.x, end.y);
        if (++lines % kMostPieces == 0) {
            stroke(kInk, 0.7, false);
        }
    }
    stroke(kInk, 0.7, false);
}

void Drawing::drawDifference(const Panel& panel) {
    const PathDifference* const found = m_content.difference;
    if (found == nullptr || found->what == nullptr) {
        return;
    }
    const ToolPath& path = *m_content.paths[0].path;
    const std::size_t last = path.movements.size() - 1;
    const Panel::Place first =
        panel.At(found->movement > last ? path.movements[last].end : path.StartOf(found->movement));
    mark(LegendRow::Mark::kFirst, first.x, first.y);
    if (found->distance > 0.0) {
        const Panel::Place farthest = panel.At(found->point);
        mark(LegendRow::Mark::kFarthest, farthest.x, farthest.y);
    }
}

// A ring, or a cross in a ring.
void Drawing::mark(LegendRow::Mark mark, double x, double y) {
    constexpr double kRadius = 7.0;
    cairo_new_sub_path(m_canvas);
    cairo_arc(m_canvas, x, y, kRadius, 0.0, 2.0 * std::numbers::pi);
    if (mark == LegendRow::Mark::kFarthest) {
        cairo_move_to(m_canvas, x - kRadius, y);
        cairo_line_to(m_canvas, x + kRadius, y);
        cairo_move_to(m_canvas, x, y - kRadius);
        cairo_line_to(m_canvas, x, y + kRadius);
    }
    stroke(kInk, kCutting, false);
}

std::vector<Drawing::LegendRow> Drawing::legendRows() const {
    using Mark = LegendRow::Mark;
    std::vector<LegendRow> rows;
    if (isComparison()) {
        for (std::size_t i = 0; i < m_content.paths.size(); ++i) {
            rows.push_back({Mark::kCutting, colourOf(i, {}), plain(m_content.paths[i].name)});
        }
    }
    // Twice the box, the scale and the rows below leave place for so many tools.
    constexpr std::size_t kMostTools = 20;
    for (std::size_t i = 0; !isComparison() && i < std::min(m_tools.size(), kMostTools); ++i) {
        rows.push_back({Mark::kCutting, colourOf(0, m_tools[i]),
                        m_tools[i] ? "T" + std::to_string(*m_tools[i]) : "no tool"});
    }
    if (!isComparison() && m_tools.size() > kMostTools) {
        rows.push_back({Mark::kNone, kInk,
                        "and " + std::to_string(m_tools.size() - kMostTools) + " more tools"});
    }
    rows.push_back({Mark::kRapid, isComparison() ? kInk : kFaint, "rapid"});
    if (std::ranges::any_of(m_content.paths,
                            [](const auto& shown) { return shown.path->isMultiAxis; })) {
        rows.push_back({Mark::kAxis, kInk, "tool axis"});
    }
    if (const PathDifference* const found = m_content.difference;
        found != nullptr && found->what != nullptr) {
        rows.push_back({Mark::kFirst, kInk, std::string("first difference: ") + found->what});
        if (found->distance > 0.0) {
            rows.push_back({Mark::kFarthest, kInk, numberText(found->distance) + " mm apart"});
        }
    }
    return rows;
}

void Drawing::drawLegend() {
    const Rectangle& legend = m_layout.legend;
    double y = legend.y + 30.0;
    text(legend.x, y, isComparison() ? "Comparison" : plain(m_content.paths[0].name), legend.width,
         true);
    y += 1.25 * kRowHeight;
    for (const LegendRow& row : legendRows()) {
        y = drawRow(row, y);
    }
    y += kRowHeight;
    for (int axis = 0; axis < 3; ++axis) {
        text(legend.x, y,
             std::string(1, "XYZ"[axis]) + "  " + numberText(m_layout.box.low[axis]) + " to " +
                 numberText(m_layout.box.high[axis]) + " mm",
             legend.width);
        y += kRowHeight;
    }
    drawScale(y + kRowHeight);
}

double Drawing::drawRow(const LegendRow& row, double y) {
    using Mark = LegendRow::Mark;
    const double x = m_layout.legend.x;
    const double middle = y - kTextSize / 3.0;
    if (row.mark == Mark::kFirst || row.mark == Mark::kFarthest) {
        mark(row.mark, x + kSampleWidth / 2.0, middle);
    } else if (row.mark == Mark::kAxis) {
        cairo_move_to(m_canvas, x + kSampleWidth / 2.0, middle + kAxisLength / 2.0);
        cairo_line_to(m_canvas, x + kSampleWidth / 2.0, middle - kAxisLength / 2.0);
        stroke(row.colour, 0.7, false);
    } else if (row.mark != Mark::kNone) {
        cairo_move_to(m_canvas, x, middle);
        cairo_line_to(m_canvas, x + kSampleWidth, middle);
        const bool isRapid = row.mark == Mark::kRapid;
        stroke(row.colour, isRapid ? kThin : 2.0 * kCutting, isRapid);
    }
    text(x + kIndent, y, row.text, m_layout.legend.width - kIndent);
    return y + kRowHeight;
}

void Drawing::drawScale(double y) {
    constexpr double kTick = 5.0;
    const Rectangle& legend = m_layout.legend;
    const double length = roundLength(0.8 * legend.width / m_layout.scale);
    const double right = legend.x + length * m_layout.scale;
    cairo_move_to(m_canvas, legend.x, y - kTick);
    cairo_line_to(m_canvas, legend.x, y + kTick);
    cairo_move_to(m_canvas, legend.x, y);
    cairo_line_to(m_canvas, right, y);
    cairo_move_to(m_canvas, right, y - kTick);
    cairo_line_to(m_canvas, right, y + kTick);
    stroke(kInk, kCutting, false);
    text(legend.x, y + kRowHeight, numberText(length) + " mm", legend.width);
}

void Drawing::stroke(const Colour& colour, double width, bool isDashed) {
    use(colour);
    cairo_set_line_width(m_canvas, width);
    cairo_set_dash(m_canvas, kDashes.data(), isDashed ? static_cast<int>(kDashes.size()) : 0, 0.0);
    cairo_stroke(m_canvas);
}

// What is wider than its place loses its end.
void Drawing::text(double x, double y, const std::string& text, double width, bool isBold) {
    cairo_select_font_face(m_canvas, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(m_canvas, kTextSize);
    use(kInk);
    std::string shown = text.substr(0, 200);
    cairo_text_extents_t extents;
    for (std::size_t kept = shown.size(); kept > 0; --kept) {
        cairo_text_extents(m_canvas, shown.c_str(), &extents);
        if (extents.x_advance <= width) {
            break;
        }
        shown = text.substr(0, kept) + "...";
    }
    cairo_move_to(m_canvas, x, y);
    cairo_show_text(m_canvas, shown.c_str());
    cairo_new_path(m_canvas);
}

Drawing::Colour Drawing::colourOf(std::size_t path, std::optional<int> tool) const {
    if (isComparison()) {
        return path == 0 ? kTools[0] : kTools[5];
    }
    const auto place = std::ranges::find(m_tools, tool) - m_tools.begin();
    return kTools[static_cast<std::size_t>(place) % std::size(kTools)];
}
