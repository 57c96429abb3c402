#include "cli/quillmark-view/PictureLayout.h"
#include "cli/quillmark-view/duration.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace {

ToolPath pathThrough(const std::vector<gmVector3>& points) {
    ToolPath path;
    for (const gmVector3& point : points) {
        ToolMovement movement;
        movement.end = point;
        path.movements.push_back(movement);
    }
    path.movements.front().startsAnew = true;
    return path;
}

bool holds(const Rectangle& outer, double x, double y) {
    return x > outer.x && x < outer.x + outer.width && y > outer.y && y < outer.y + outer.height;
}

bool overlap(const Rectangle& a, const Rectangle& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

} // namespace

TEST(PictureLayout, KeepsThePathInItsViewsAndApartFromTheLegend) {
    for (const std::vector<gmVector3>& points :
         {std::vector<gmVector3>{{0, 0, 0}, {100, 20, 3}, {-50, 7, -30}},
          {{1e6, 0, 0}, {1e6, 1e-3, 500}},
          {{5, 5, 5}}}) {
        const ToolPath path = pathThrough(points);
        for (const View* view : {static_cast<const View*>(nullptr), findView("side")}) {
            PictureContent content;
            content.paths.push_back({&path, "a"});
            content.view = view;
            const PictureLayout layout = layOut(content);
            ASSERT_EQ(layout.panels.size(), view == nullptr ? 4U : 1U);
            std::vector<Rectangle> places{layout.legend};
            for (const Panel& panel : layout.panels) {
                EXPECT_EQ(panel.scale, layout.scale);
                for (const gmVector3& point : points) {
                    const Panel::Place place = panel.At(point);
                    EXPECT_TRUE(holds(panel.plot, place.x, place.y)) << panel.view->name;
                }
                places.push_back(panel.plot);
                places.push_back(panel.head);
            }
            for (std::size_t i = 0; i < places.size(); ++i) {
                EXPECT_LE(places[i].x + places[i].width, layout.width);
                EXPECT_LE(places[i].y + places[i].height, layout.height);
                for (std::size_t k = 0; k < i; ++k) {
                    EXPECT_FALSE(overlap(places[i], places[k])) << i << " and " << k;
                }
            }
        }
    }
}

// Right and up on the picture, for the axes of the part.
TEST(PictureLayout, LooksFromTheSidesThatTheViewsName) {
    const ToolPath path = pathThrough({{-1, -1, -1}, {1, 1, 1}});
    PictureContent content;
    content.paths.push_back({&path, "a"});
    const PictureLayout layout = layOut(content);
    const auto directions = [&](const char* name) {
        std::vector<double> found;
        for (const Panel& panel : layout.panels) {
            for (int axis = 0; std::string_view(panel.view->name) == name && axis < 3; ++axis) {
                gmVector3 unit;
                unit[axis] = 1.0;
                const Panel::Place from = panel.At(NullVector3);
                const Panel::Place to = panel.At(unit);
                found.push_back(std::round((to.x - from.x) / layout.scale * 1e4) / 1e4 + 0.0);
                found.push_back(std::round((from.y - to.y) / layout.scale * 1e4) / 1e4 + 0.0);
            }
        }
        return found;
    };
    EXPECT_EQ(directions("top"), (std::vector<double>{1, 0, 0, 1, 0, 0}));
    EXPECT_EQ(directions("front"), (std::vector<double>{1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(directions("side"), (std::vector<double>{0, 0, 1, 0, 0, 1}));
    EXPECT_EQ(directions("isometric"),
              (std::vector<double>{0.7071, -0.4082, 0.7071, 0.4082, 0, 0.8165}));
}

TEST(Duration, IsToldInItsLargestUnits) {
    EXPECT_EQ(durationText(0.04), "0.0 s");
    EXPECT_EQ(durationText(59.96), "1 min 00.0 s");
    EXPECT_EQ(durationText(3723.4), "1 h 02 min 03.4 s");
    EXPECT_EQ(durationText(3.6e12), "1e+09 h");
}
