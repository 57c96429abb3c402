#pragma once

#include "cli/quillmark-view/PictureContent.h"
#include "cli/quillmark-view/PictureLayout.h"

#include <cairo.h>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Draws a picture of paths, on whatever surface: the views, each in its own rectangle, and the
/// legend in a column beside them. Rapid movements are dashed; those at feed have the colour of
/// their tool or, where two paths are compared, of their path.
class Drawing {
public:
    Drawing(cairo_t* canvas, const PictureContent& content, const PictureLayout& layout);

    void Draw();

private:
    struct Colour {
        double red, green, blue;
    };
    struct LegendRow {
        enum class Mark { kNone, kCutting, kRapid, kAxis, kFirst, kFarthest };
        Mark mark;
        Colour colour;
        std::string text;
    };

    void drawPanel(const Panel& panel);
    void drawHead(const Panel& panel);
    void drawRapids(const Panel& panel, std::size_t index);
    void drawCutting(const Panel& panel, std::size_t index);
    void drawAxes(const Panel& panel, const ToolPath& path);
    void drawDifference(const Panel& panel);
    void drawLegend();
    void drawScale(double y);
    double drawRow(const LegendRow& row, double y);
    [[nodiscard]] std::vector<LegendRow> legendRows() const;

    void moveTo(const Panel& panel, const gmVector3& point);
    void lineTo(const Panel& panel, const gmVector3& point, bool isLast);
    void addArc(const Panel& panel, const ToolPath& path, std::size_t movement);
    void stroke(const Colour& colour, double width, bool isDashed);
    void mark(LegendRow::Mark mark, double x, double y);
    void text(double x, double y, const std::string& text, double width, bool isBold = false);
    void use(const Colour& colour) {
        cairo_set_source_rgb(m_canvas, colour.red, colour.green, colour.blue);
    }
    [[nodiscard]] Colour colourOf(std::size_t path, std::optional<int> tool) const;
    [[nodiscard]] bool isComparison() const noexcept { return m_content.paths.size() > 1; }

    static const Colour kTools[];
    static const Colour kInk;
    static const Colour kFaint;

    cairo_t* m_canvas;
    const PictureContent& m_content;
    const PictureLayout& m_layout;
    std::vector<std::optional<int>> m_tools; // those that cut, in the order of their use
    Panel::Place m_last{};                   // of the line that is drawn
    int m_pieces = 0;                        // of it
};
