#include "path/PathTree.h"

#include "path/vectorParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr std::size_t kLeaf = 4; // movements

double distanceTo(const PathBox& box, const gmVector3& point) noexcept {
    gmVector3 out;
    for (int axis = 0; axis < 3; ++axis) {
        out[axis] = std::max({box.low[axis] - point[axis], point[axis] - box.high[axis], 0.0});
    }
    return out.length();
}

double distanceToStraight(const gmVector3& start, const gmVector3& end,
                          const gmVector3& point) noexcept {
    const gmVector3 way = end - start;
    const double square = dotProduct(way, way);
    const double part =
        square > 0.0 ? std::clamp(dotProduct(point - start, way) / square, 0.0, 1.0) : 0.0;
    return (point - start - way * part).length();
}

// To the nearest end, or to the point at the same angle where the arc has that.
double distanceToArc(const Sweep& sweep, const gmVector3& point) noexcept {
    const gmVector3 out = point - sweep.centre;
    double best = std::min((point - sweep.PointAt(0.0)).length(),
                           (point - sweep.PointAt(sweep.angle)).length());
    double angle = std::atan2(dotProduct(out, sweep.across), dotProduct(out, sweep.from));
    angle += angle < 0.0 ? 2.0 * std::numbers::pi : 0.0;
    if (angle < sweep.angle) {
        best = std::min(best, (point - sweep.PointAt(angle)).length());
    }
    return best;
}

double distanceTo(const ToolPath& path, std::size_t movement, const gmVector3& point) noexcept {
    return path.movements[movement].IsArc()
               ? distanceToArc(path.SweepOf(movement), point)
               : distanceToStraight(path.StartOf(movement), path.movements[movement].end, point);
}

} // namespace

PathTree::PathTree(const ToolPath& path, std::size_t first, std::size_t last) : m_path(path) {
    m_nodes.reserve(2 * ((last - first) / kLeaf + 1));
    (void)build(first, last);
}

std::size_t PathTree::build(std::size_t first, std::size_t last) {
    const std::size_t node = m_nodes.size();
    m_nodes.push_back({{}, first, last, 0});
    PathBox box;
    if (last - first <= kLeaf) {
        for (std::size_t i = first; i < last; ++i) {
            box.Add(m_path, i);
        }
    } else {
        const std::size_t middle = first + (last - first) / 2;
        box.Add(m_nodes[build(first, middle)].box);
        const std::size_t second = build(middle, last);
        box.Add(m_nodes[second].box);
        m_nodes[node].second = second;
    }
    m_nodes[node].box = box;
    return node;
}

double PathTree::Distance(const gmVector3& point, double enough) const {
    double best = HUGE_VAL;
    search(0, point, enough, best);
    return best;
}

// The nearer half comes first: it rules out more of the other.
void PathTree::search(std::size_t node, const gmVector3& point, double enough, double& best) const {
    const Node& at = m_nodes[node];
    if (at.second == 0) {
        for (std::size_t i = at.first; i < at.last; ++i) {
            best = std::min(best, distanceTo(m_path, i, point));
        }
        return;
    }
    std::array<std::size_t, 2> halves{node + 1, at.second};
    if (distanceTo(m_nodes[halves[1]].box, point) < distanceTo(m_nodes[halves[0]].box, point)) {
        std::swap(halves[0], halves[1]);
    }
    for (const std::size_t half : halves) {
        if (best > enough && distanceTo(m_nodes[half].box, point) < best) {
            search(half, point, enough, best);
        }
    }
}
