#pragma once

#include "cli/quillmark-view/views.h"
#include "path/PathDifference.h"
#include "path/ToolPath.h"

#include <string>
#include <vector>

/// What a picture shows. The paths live longer.
struct PictureContent {
    struct Shown {
        const ToolPath* path;
        std::string name; ///< of its file, without folders
    };

    std::vector<Shown> paths;                   ///< one, or two that are compared
    const PathDifference* difference = nullptr; ///< of the two
    const View* view = nullptr;                 ///< the only one; null: all
};
