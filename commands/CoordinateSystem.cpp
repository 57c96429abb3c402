#include "commands/CoordinateSystem.h"

#include <cmath>
#include <numbers>

void CoordinateSystem::Settle() {
    m_angle = std::fmod(zeros.AngleOf(zeros.Current()), 360.0);
    m_origin = zeros.OriginOf(zeros.Current());
    m_offset = WholeShift() + m_origin;
    const bool isShifted = m_offset[0] != 0.0 || m_offset[1] != 0.0 || m_offset[2] != 0.0;
    m_isChanged = isShifted || m_angle != 0.0 || !frame.IsEmpty();
}

gmVector3 CoordinateSystem::ToStart(const gmVector3& point) const {
    const gmVector3 framed = frame.IsEmpty() ? point : frame.Apply(point);
    return m_angle == 0.0 ? framed + m_offset : Turned(framed + WholeShift(), m_angle) + m_origin;
}

gmVector3 CoordinateSystem::FromStart(const gmVector3& point) const {
    const gmVector3 framed =
        m_angle == 0.0 ? point - m_offset : Turned(point - m_origin, -m_angle) - WholeShift();
    return frame.IsEmpty() ? framed : frame.Undo(framed);
}

gmVector3 CoordinateSystem::DirectionToStart(const gmVector3& direction) const {
    const gmVector3 framed = frame.IsEmpty() ? direction : frame.Turn(direction);
    return m_angle == 0.0 ? framed : Turned(framed, m_angle);
}

void CoordinateSystem::Rescale(double factor) {
    zeros.Rescale(factor);
    shift.Rescale(factor);
    localShift *= factor;
    frame.Rescale(factor);
    Settle();
}

gmVector3 CoordinateSystem::Turned(const gmVector3& v, double angle) {
    constexpr double kNoise = 1e-15; // what computing leaves of a 0 is none
    const double radians = angle * std::numbers::pi / 180.0;
    const double sine = std::sin(radians);
    const double cosine = std::cos(radians);
    const auto product = [](double factor, double value) {
        return std::abs(factor) < kNoise ? 0.0 : factor * value;
    };
    return {product(cosine, v[0]) - product(sine, v[1]),
            product(sine, v[0]) + product(cosine, v[1]), v[2]};
}
