#pragma once

#include "kinematics/ToolPlace.h"

#include <functional>
#include <vector>

/// A movement of the tool: where it is at a fraction of the movement, 0 to 1.
using ToolCurve = std::function<ToolPlace(double fraction)>;

/// Puts points into a movement until the straight ways between them, on which the tip moves evenly
/// and the axis is interpolated and normalised, leave it at no fraction by more than the
/// tolerances. It finds the farthest next point each time, so that there is hardly one more than
/// needed, and then spreads as many evenly where that serves as well. Whatever the numbers are, it
/// ends.
class CurveSplitter {
public:
    static constexpr std::size_t kMostPoints = 100'000; ///< of one movement; more are a mistake
    static constexpr double kMargin = 0.98; ///< of the tolerances, for samples and decimals

    /// `tolerance` in the unit of the tips, `axisTolerance` in degrees, both above 0; `turning` is
    /// how many degrees things turn on the whole way, so that no turn lies between two samples.
    /// `curve` must outlive the splitter.
    CurveSplitter(const ToolCurve& curve, double tolerance, double axisTolerance, double turning);

    /// The fractions of the points, the last of which is 1. Empty when there were more than `most`,
    /// more turns than a movement has, or places where no step is small enough or too many are
    /// tried.
    [[nodiscard]] std::vector<double> Split(std::size_t most = kMostPoints);

private:
    [[nodiscard]] double errorOf(double begin, double end);
    [[nodiscard]] double farthestStep(double begin, double step);
    [[nodiscard]] bool isEvenEnough(std::size_t parts);

    const ToolCurve& m_curve;
    double m_tolerance;
    double m_axisTolerance; // radians
    double m_turning;
    double m_places = 0.0; // looked at
};
