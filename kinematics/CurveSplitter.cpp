#include "kinematics/CurveSplitter.h"

#include "kinematics/greatArc.h"
#include "softCommon/CMathUtil/gmUtil.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kFewestSamples = 16.0;
constexpr double kDegreesPerSample = 5.0;
constexpr double kMostTurning = 360'000.0;         // degrees of one chord
constexpr double kMostTurningInAll = 36'000'000.0; // degrees
constexpr double kSmallest = 1e-9;                 // a step that is always taken,
constexpr int kMostSmallest = 100;                 // so often
constexpr double kMostPlaces = 3'000'000.0;        // looked at, where a point takes some thirty

double axisError(const gmVector3& begin, const gmVector3& end, double u, const gmVector3& truth) {
    constexpr double kNoDirection = 1e-6;
    const gmVector3 way = begin + (end - begin) * u;
    const double length = way.length();
    return length < kNoDirection ? std::numeric_limits<double>::infinity()
                                 : angleBetween(way * (1.0 / length), truth);
}

} // namespace

CurveSplitter::CurveSplitter(const ToolCurve& curve, double tolerance, double axisTolerance,
                             double turning)
    : m_curve(curve), m_tolerance(tolerance * kMargin),
      m_axisTolerance(gmRadians(axisTolerance) * kMargin), m_turning(turning) {}

std::vector<double> CurveSplitter::Split(std::size_t most) {
    std::vector<double> fractions;
    if (m_turning > kMostTurningInAll) {
        return fractions;
    }
    double begin = 0.0;
    double step = std::min(1.0, kMostTurning / std::max(m_turning, 1.0));
    const double longest = step;
    int smallest = 0;
    while (begin < 1.0) {
        const double taken = farthestStep(begin, std::min(step, 1.0 - begin));
        smallest += taken > kSmallest ? 0 : 1;
        if (fractions.size() == most || smallest > kMostSmallest || m_places > kMostPlaces) {
            return {};
        }
        const double end = begin + taken >= 1.0 ? 1.0 : begin + taken;
        step = std::min(longest, 1.5 * (end - begin));
        fractions.push_back(end);
        begin = end;
    }
    if (fractions.size() > 1 && isEvenEnough(fractions.size())) {
        for (std::size_t i = 0; i < fractions.size(); ++i) {
            fractions[i] = static_cast<double>(i + 1) / static_cast<double>(fractions.size());
        }
    }
    return fractions;
}

// The error grows about with the square of the step, which guides the search.
double CurveSplitter::farthestStep(double begin, double step) {
    constexpr double kNearEnough = 0.9; // of the tolerance
    constexpr int kMostTries = 40;
    double good = 0.0;
    double bad = std::numeric_limits<double>::infinity();
    for (int tries = 0; tries < kMostTries && step > kSmallest; ++tries) {
        const bool isLast = begin + step >= 1.0;
        const double error = errorOf(begin, isLast ? 1.0 : begin + step);
        if (error <= 1.0) {
            good = step;
            if (isLast) {
                return 1.0; // and more than is left
            }
            if (error >= kNearEnough || step * m_turning >= kMostTurning) {
                break;
            }
        } else {
            bad = step;
        }
        const double guess = step * std::clamp(std::sqrt(0.95 / std::max(error, 1e-12)), 0.01, 8.0);
        const double room = bad - good;
        step = std::isinf(bad) ? std::min(guess, 1.0 - begin)
                               : std::clamp(guess, good + 0.1 * room, bad - 0.1 * room);
        if (bad - good < 0.02 * good) {
            break;
        }
    }
    return std::max(good, kSmallest);
}

bool CurveSplitter::isEvenEnough(std::size_t parts) {
    const auto count = static_cast<double>(parts);
    for (std::size_t i = 0; i < parts; ++i) {
        const double end = i + 1 == parts ? 1.0 : static_cast<double>(i + 1) / count;
        if (errorOf(static_cast<double>(i) / count, end) > 1.0) {
            return false;
        }
    }
    return true;
}

// In parts of the tolerance. Where it is far beyond, the rest is not looked at.
double CurveSplitter::errorOf(double begin, double end) {
    constexpr double kFarBeyond = 4.0;
    const ToolPlace from = m_curve(begin);
    const ToolPlace to = m_curve(end);
    const double samples =
        std::max(kFewestSamples, std::ceil((end - begin) * m_turning / kDegreesPerSample));
    m_places += samples;
    double most = 0.0;
    for (double i = 1.0; i < samples && most < kFarBeyond; ++i) {
        const double u = i / samples;
        const ToolPlace truth = m_curve(begin + (end - begin) * u);
        const gmVector3 off = from.tip + (to.tip - from.tip) * u - truth.tip;
        most = std::max({most, off.length() / m_tolerance,
                         axisError(from.axis, to.axis, u, truth.axis) / m_axisTolerance});
    }
    return most;
}
