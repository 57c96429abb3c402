#pragma once

#include "path/PathBox.h"
#include "path/ToolPath.h"

#include <cstddef>
#include <vector>

/// Finds how far points are from a stretch of a path, which must live as long. Boxes around ever
/// shorter stretches keep most movements out of the search.
class PathTree {
public:
    /// The movements from `first` to in front of `last`; at least one.
    PathTree(const ToolPath& path, std::size_t first, std::size_t last);

    /// The distance of a point to the nearest movement, mm; or any distance not above `enough` as
    /// soon as one is found.
    [[nodiscard]] double Distance(const gmVector3& point, double enough) const;

private:
    struct Node {
        PathBox box;
        std::size_t first;
        std::size_t last;
        std::size_t second; ///< index of the second half; the first stands behind its node
    };

    std::size_t build(std::size_t first, std::size_t last);
    void search(std::size_t node, const gmVector3& point, double enough, double& best) const;

    const ToolPath& m_path;
    std::vector<Node> m_nodes;
};
