#include "commands/resolveArc.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kSamePoint = 1e-9;      // of lengths
constexpr double kWholeNumber = 1e-4;    // by which turns may miss one
constexpr double kMostTurns = 1'000'000; // more are a mistake

constexpr std::array<const char*, 3> kCentreNames = {"X", "Y", "Z"};

/// A point or direction within the plane.
struct Flat {
    double first;
    double second;
};

Flat flat(const gmVector3& point, const PlaneAxes& axes) {
    return {point[axes.first], point[axes.second]};
}

Flat operator-(const Flat& a, const Flat& b) noexcept {
    return {a.first - b.first, a.second - b.second};
}

double length(const Flat& v) noexcept { return std::hypot(v.first, v.second); }

std::string number(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

std::string readTurns(const ArcRequest& request, double& turns) {
    const auto isBad = [](double value, double least) {
        return !(value > least - kWholeNumber) || value > kMostTurns ||
               std::abs(value - std::round(value)) > kWholeNumber;
    };
    turns = 0.0;
    if (request.turnsBegun) {
        if (isBad(*request.turnsBegun, 1.0)) {
            return "the number of turns begun is " + number(*request.turnsBegun) +
                   ", and not a whole one from 1 on";
        }
        turns += std::round(*request.turnsBegun) - 1.0;
    }
    if (request.turnsMore) {
        if (isBad(*request.turnsMore, 0.0)) {
            return "the number of further turns is " + number(*request.turnsMore) +
                   ", and not a whole one from 0 on";
        }
        turns += std::round(*request.turnsMore);
    }
    return {};
}

std::string centreOfWords(const ArcRequest& request, const PlaneAxes& axes, Flat& centre) {
    const auto& [first, second, normal] = axes;
    const auto word = [&request](int axis) -> const std::optional<double>& {
        return request.centre[static_cast<std::size_t>(axis)];
    };
    if (word(normal)) {
        return std::string("the centre word along ") +
               kCentreNames[static_cast<std::size_t>(normal)] + " is of another plane";
    }
    if (request.needsWholeCentre && (!word(first) || !word(second))) {
        return "an absolute centre needs both of its words";
    }
    centre = {word(first).value_or(request.start[first]),
              word(second).value_or(request.start[second])};
    const double atStart = length(flat(request.start, axes) - centre);
    const double atEnd = length(flat(request.end, axes) - centre);
    if (!(atStart > kSamePoint)) {
        return "the radius is 0: the centre is the start";
    }
    if (request.tolerance.IsExceeded(atStart, atEnd)) {
        return "the radius is " + number(atStart) + " at the start and " + number(atEnd) +
               " at the end";
    }
    return {};
}

// The shorter way round lies on the side of the chord to which the arc turns.
std::string centreOfRadius(const ArcRequest& request, const PlaneAxes& axes, Flat& centre) {
    const Flat start = flat(request.start, axes);
    const Flat end = flat(request.end, axes);
    const Flat chord = end - start;
    const double half = length(chord) / 2.0;
    const double radius = std::abs(*request.radius);
    if (!(half > kSamePoint)) {
        return "an arc by radius ends where it begins";
    }
    if (!(radius > 0.0)) {
        return "the radius is 0";
    }
    if (!(half - radius <= request.tolerance.radius)) {
        return "the radius " + number(radius) + " is too small for a way of " + number(2.0 * half);
    }
    const double height = std::sqrt(std::max(0.0, (radius - half) * (radius + half)));
    const bool isLeft = request.isClockwise == (*request.radius < 0.0);
    const double along = (isLeft ? height : -height) / (2.0 * half);
    centre = {start.first + chord.first / 2.0 - chord.second * along,
              start.second + chord.second / 2.0 + chord.first * along};
    return {};
}

std::string findCentre(const ArcRequest& request, const PlaneAxes& axes, Flat& centre) {
    const bool hasCentre =
        std::ranges::any_of(request.centre, [](const auto& word) { return word.has_value(); });
    if (request.radius && hasCentre) {
        return "both a radius and a centre are given";
    }
    if (request.radius) {
        return centreOfRadius(request, axes, centre);
    }
    if (hasCentre) {
        return centreOfWords(request, axes, centre);
    }
    return "neither a centre nor a radius is given";
}

} // namespace

ArcTolerance ArcTolerance::InInches() const noexcept {
    constexpr double kMillimetresPerInch = 25.4;
    return {low / 10.0, fraction, high / 10.0, radius / kMillimetresPerInch};
}

bool ArcTolerance::IsExceeded(double atStart, double atEnd) const noexcept {
    const double difference = std::abs(atStart - atEnd);
    return !(difference <= high) || (difference > low && difference > fraction * atStart);
}

std::string resolveArc(const ArcRequest& request, Sweep& sweep) {
    const PlaneAxes axes = axesOf(request.plane);
    double turns = 0.0;
    if (std::string reason = readTurns(request, turns); !reason.empty()) {
        return reason;
    }
    Flat centre{};
    if (std::string reason = findCentre(request, axes, centre); !reason.empty()) {
        return reason;
    }
    const Flat from = flat(request.start, axes) - centre;
    const Flat to = flat(request.end, axes) - centre;
    const double side = request.isClockwise ? -1.0 : 1.0;
    const Flat across = {-from.second * side, from.first * side};
    sweep.angle = std::atan2(to.first * across.first + to.second * across.second,
                             to.first * from.first + to.second * from.second);
    const double startRadius = length(from);
    if (sweep.angle < 0.0) {
        sweep.angle += kFullTurn;
    }
    if (sweep.angle * startRadius <= kSamePoint) {
        sweep.angle = kFullTurn; // an end at the start is reached by a full turn
    }
    sweep.angle += turns * kFullTurn;
    sweep.growth = length(to) / startRadius;

    const auto inSpace = [&axes](const Flat& point, double normal) {
        gmVector3 result;
        result[axes.first] = point.first;
        result[axes.second] = point.second;
        result[axes.normal] = normal;
        return result;
    };
    sweep.centre = inSpace(centre, request.start[axes.normal]);
    sweep.from = inSpace(from, 0.0);
    sweep.across = inSpace(across, 0.0);
    sweep.rise = inSpace({0.0, 0.0}, request.end[axes.normal] - request.start[axes.normal]);
    return {};
}
