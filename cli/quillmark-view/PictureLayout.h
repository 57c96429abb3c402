#pragma once

#include "cli/quillmark-view/PictureContent.h"
#include "path/PathBox.h"

#include <vector>

struct Rectangle {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
};

/// One view with its place on the picture. Nothing of the path leaves `plot`.
struct Panel {
    const View* view = nullptr;
    Rectangle head; ///< for its title and the directions of its axes
    Rectangle plot;
    double scale = 1.0; ///< points of the picture for a mm
    double left = 0.0;  ///< of the middle of the path, mm to the right
    double low = 0.0;   ///< mm up

    struct Place {
        double x, y;
    };
    [[nodiscard]] Place At(const gmVector3& point) const noexcept;
};

/// Where everything stands on a picture: the views, all in one scale, beside the legend, which has
/// a column of its own.
struct PictureLayout {
    double width = 0.0; ///< points, as all
    double height = 0.0;
    double scale = 1.0;
    std::vector<Panel> panels;
    Rectangle legend;
    PathBox box; ///< of all paths
};

[[nodiscard]] PictureLayout layOut(const PictureContent& content);
