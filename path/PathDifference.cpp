#include "path/PathDifference.h"

#include "path/PathTree.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kInch = 25.4;
constexpr double kSameDirection = 2e-5; // between directions of length 1
constexpr double kSameRate = 1e-4;
constexpr double kNoProgress = 1e-9; // mm, of a distance

double grainOf(const ToolPath& path) noexcept { return path.isInch ? 1e-5 * kInch : 1e-5; }

// Points of a movement at which it is measured; of a straight one the far end comes first.
constexpr int kStraightSamples = 4;
constexpr int kArcSamples = 12;

int samplesOf(const ToolPath& path, std::size_t movement) noexcept {
    return path.movements[movement].IsArc() ? kArcSamples : kStraightSamples;
}

class Comparing {
public:
    Comparing(const ToolPath& a, const ToolPath& b)
        : m_a(a), m_b(b),
          // Values with the same digits are the same; those of two units are rounded twice.
          m_grain(a.isInch == b.isInch ? 0.1 * grainOf(a) : grainOf(a) + grainOf(b)) {}

    PathDifference Run() {
        const std::size_t shorter = std::min(m_a.movements.size(), m_b.movements.size());
        PathDifference found;
        while (found.movement < shorter && found.what == nullptr) {
            found.what = differingPart(found.movement);
            found.movement += found.what == nullptr ? 1U : 0U;
        }
        if (found.what == nullptr && m_a.movements.size() != m_b.movements.size()) {
            found.what = "one path ends";
        }
        if (found.what != nullptr) {
            measure(shorter, found);
        }
        return found;
    }

private:
    // What of a movement differs first, or null.
    [[nodiscard]] const char* differingPart(std::size_t i) const {
        const ToolMovement& one = m_a.movements[i];
        const ToolMovement& other = m_b.movements[i];
        if (one.kind != other.kind) {
            return "kind of movement";
        }
        if ((one.end - other.end).length() > m_grain) {
            return "end";
        }
        if (one.IsArc() && !isSameArc(m_a.arcs[one.arc], m_b.arcs[other.arc])) {
            return "arc";
        }
        if ((m_a.axes[one.axis] - m_b.axes[other.axis]).length() > kSameDirection) {
            return "tool axis";
        }
        return differingState(m_a.StateOf(one), m_b.StateOf(other), one.IsRapid());
    }

    // At rapid the feed says nothing.
    static const char* differingState(const ToolState& one, const ToolState& other, bool isRapid) {
        if (one.tool != other.tool) {
            return "tool";
        }
        if (!isRapid && (std::fabs(one.feed - other.feed) > kSameRate ||
                         one.isFeedPerTurn != other.isFeedPerTurn)) {
            return "feed";
        }
        if (one.spindle != other.spindle ||
            (one.spindle != SpindleState::kOff && (std::fabs(one.speed - other.speed) > kSameRate ||
                                                   one.isCuttingSpeed != other.isCuttingSpeed))) {
            return "spindle";
        }
        if (one.coolant != other.coolant) {
            return "coolant";
        }
        return one.side != other.side || one.compensation != other.compensation
                   ? "radius compensation"
                   : nullptr;
    }

    [[nodiscard]] bool isSameArc(const ToolArc& one, const ToolArc& other) const {
        return (one.centre - other.centre).length() <= m_grain &&
               (one.normal - other.normal).length() <= kSameDirection &&
               std::fabs(one.angle - other.angle) * one.radius <= 4.0 * m_grain;
    }

    [[nodiscard]] bool isSamePlace(std::size_t i, std::size_t k) const {
        const ToolMovement& one = m_a.movements[i];
        const ToolMovement& other = m_b.movements[k];
        return one.IsArc() == other.IsArc() && (one.end - other.end).length() <= m_grain &&
               (!one.IsArc() || isSameArc(m_a.arcs[one.arc], m_b.arcs[other.arc]));
    }

    // The stretches that differ, each with the movement in front of it, so that none is empty.
    void measure(std::size_t shorter, PathDifference& found) const {
        std::size_t front = found.movement;
        while (front < shorter && isSamePlace(front, front)) {
            ++front;
        }
        if (front == shorter && m_a.movements.size() == m_b.movements.size()) {
            return; // it is only technology that differs
        }
        std::size_t back = 0;
        while (back < shorter - front &&
               isSamePlace(m_a.movements.size() - 1 - back, m_b.movements.size() - 1 - back)) {
            ++back;
        }
        // The movement behind the stretch begins where that ends.
        back -= back > 0 ? 1U : 0U;
        const std::size_t first = front > 0 ? front - 1 : 0;
        const std::size_t endOfA = m_a.movements.size() - back;
        const std::size_t endOfB = m_b.movements.size() - back;
        const PathTree treeOfA(m_a, first, std::max(endOfA, first + 1));
        const PathTree treeOfB(m_b, first, std::max(endOfB, first + 1));
        // What digits leave open is no distance.
        const double least = 2.0 * std::max(grainOf(m_a), grainOf(m_b));
        found.distance = least;
        double part = 1.0; // of its movement
        measureOne(m_a, first, endOfA, treeOfB, false, found, part);
        measureOne(m_b, first, endOfB, treeOfA, true, found, part);
        if (found.distance == least) {
            found.distance = 0.0;
        } else if (found.isOfSecond) {
            refine(m_b, treeOfA, part, found);
        } else {
            refine(m_a, treeOfB, part, found);
        }
    }

    static void measureOne(const ToolPath& path, std::size_t first, std::size_t last,
                           const PathTree& other, bool isSecond, PathDifference& found,
                           double& partOfFarthest) {
        for (std::size_t i = first; i < last; ++i) {
            const int samples = samplesOf(path, i);
            for (int sample = samples; sample > 0; --sample) {
                const double part = static_cast<double>(sample) / samples;
                if (takeFarther(path.PointAt(i, part), other, found)) {
                    found.isOfSecond = isSecond;
                    found.farthest = i;
                    partOfFarthest = part;
                }
            }
        }
    }

    // On its movement the farthest point lies somewhere around the farthest sample.
    static void refine(const ToolPath& path, const PathTree& other, double part,
                       PathDifference& found) {
        constexpr int kHalvings = 30;
        double step = 1.0 / samplesOf(path, found.farthest);
        for (int i = 0; i < kHalvings; ++i) {
            step *= 0.5;
            for (const double next : {part - step, part + step}) {
                if (next >= 0.0 && next <= 1.0 &&
                    takeFarther(path.PointAt(found.farthest, next), other, found)) {
                    part = next;
                    break;
                }
            }
        }
    }

    static bool takeFarther(const gmVector3& point, const PathTree& other, PathDifference& found) {
        const double distance = other.Distance(point, found.distance + kNoProgress);
        if (distance <= found.distance + kNoProgress) {
            return false;
        }
        found.distance = distance;
        found.point = point;
        return true;
    }

    const ToolPath& m_a;
    const ToolPath& m_b;
    double m_grain;
};

} // namespace

PathDifference comparePaths(const ToolPath& a, const ToolPath& b) { return Comparing(a, b).Run(); }
