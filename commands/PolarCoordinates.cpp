#include "commands/PolarCoordinates.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

bool isIncremental(const AxisValue& value, bool isIncrementalMode) noexcept {
    return value.isIncremental || (isIncrementalMode && !value.isAbsolute);
}

} // namespace

void PolarCoordinates::Switch(bool isOn) noexcept {
    m_isOn = isOn;
    m_pole = gmVector3();
    m_radius.reset();
    m_angle.reset();
}

bool PolarCoordinates::TakeWords(char* line, MachineStatus& status) {
    m_radiusWord = radiusWords.TakeValue(line, status);
    m_angleWord = angleWords.TakeValue(line, status);
    return HasWords();
}

void PolarCoordinates::ForgetWords() noexcept {
    m_radiusWord.reset();
    m_angleWord.reset();
}

gmVector3 PolarCoordinates::Resolve(AxisValues& values, Plane plane, bool isIncrementalMode,
                                    const gmVector3& point) {
    const PlaneAxes axes = axesOf(plane);
    const bool hasOwnWords = HasWords();
    std::optional<AxisValue> radius = std::exchange(m_radiusWord, std::nullopt);
    std::optional<AxisValue> angle = std::exchange(m_angleWord, std::nullopt);
    if (!hasOwnWords) {
        radius = std::exchange(values[static_cast<std::size_t>(axes.first)], std::nullopt);
        angle = std::exchange(values[static_cast<std::size_t>(axes.second)], std::nullopt);
        if (!radius && !angle) {
            return point;
        }
    }
    if (radius && isIncremental(*radius, isIncrementalMode)) {
        m_pole = point; // a radius in incremental dimensions counts from the tool
    } else if (radius && m_isOn) {
        m_pole = gmVector3();
    }
    const double first = point[axes.first] - m_pole[axes.first];
    const double second = point[axes.second] - m_pole[axes.second];
    m_radius = radius ? radius->value : m_radius.value_or(std::hypot(first, second));
    const double lastAngle = m_angle.value_or(std::atan2(second, first) / kDegree);
    m_angle = !angle                                     ? lastAngle
              : isIncremental(*angle, isIncrementalMode) ? lastAngle + angle->value
                                                         : angle->value;
    gmVector3 result = m_pole + OffsetOf({.radius = *m_radius, .angle = *m_angle}, plane);
    result[axes.normal] = point[axes.normal];
    return result;
}

PolarCoordinates::Direction PolarCoordinates::TakeDirection() noexcept {
    const std::optional<AxisValue> radius = std::exchange(m_radiusWord, std::nullopt);
    const std::optional<AxisValue> angle = std::exchange(m_angleWord, std::nullopt);
    return {.radius = radius ? radius->value : 0.0, .angle = angle ? angle->value : 0.0};
}

gmVector3 PolarCoordinates::OffsetOf(const Direction& direction, Plane plane) {
    const PlaneAxes axes = axesOf(plane);
    gmVector3 result;
    result[axes.first] = direction.radius * std::cos(direction.angle * kDegree);
    result[axes.second] = direction.radius * std::sin(direction.angle * kDegree);
    return result;
}

void PolarCoordinates::Rescale(double factor) {
    m_pole *= factor;
    if (m_radius) {
        *m_radius *= factor;
    }
}
