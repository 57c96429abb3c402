#include "commands/Frame.h"

#include <cmath>

namespace {

// What computing leaves of a 0 is none: a quarter turn maps axes to axes.
void dropNoise(gmMatrix4& matrix) {
    constexpr double kNoise = 1e-15;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (std::abs(matrix[row][column]) < kNoise) {
                matrix[row][column] = 0.0;
            }
        }
    }
}

// A coordinate that nobody knows reaches only those that depend on it.
gmVector3 map(const gmVector3& v, const gmMatrix4& matrix, bool isPoint) {
    gmVector3 result;
    for (int column = 0; column < 3; ++column) {
        double sum = isPoint ? matrix[3][column] : 0.0;
        for (int row = 0; row < 3; ++row) {
            const double element = matrix[row][column];
            sum += element == 0.0 ? 0.0 : v[row] * element;
        }
        result[column] = sum;
    }
    return result;
}

void rescaleShift(gmMatrix4& matrix, double factor) {
    for (int column = 0; column < 3; ++column) {
        matrix[3][column] *= factor;
    }
}

} // namespace

void Frame::Add(const FramePart& part) {
    FramePart& added = m_parts.emplace_back(part);
    if (part.kind == FrameKind::kRotate) {
        dropNoise(added.matrix);
        dropNoise(added.inverse);
    }
    m_matrix = added.matrix * m_matrix;
    m_inverse *= added.inverse;
}

void Frame::Clear() {
    m_parts.clear();
    multiply();
}

void Frame::Remove(FrameKind kind) {
    std::erase_if(m_parts, [kind](const FramePart& part) { return part.kind == kind; });
    multiply();
}

void Frame::RemoveMirror(int axis) {
    std::erase_if(m_parts, [axis](const FramePart& part) {
        return part.kind == FrameKind::kMirror && part.axis == axis;
    });
    multiply();
}

void Frame::Rescale(double factor) {
    for (FramePart& part : m_parts) {
        rescaleShift(part.matrix, factor);
        rescaleShift(part.inverse, factor);
    }
    multiply();
}

void Frame::multiply() {
    m_matrix = gmMatrix4::identity();
    m_inverse = gmMatrix4::identity();
    for (const FramePart& part : m_parts) {
        m_matrix = part.matrix * m_matrix;
        m_inverse *= part.inverse;
    }
}

gmVector3 Frame::Apply(const gmVector3& point) const { return map(point, m_matrix, true); }

gmVector3 Frame::Undo(const gmVector3& point) const { return map(point, m_inverse, true); }

gmVector3 Frame::Turn(const gmVector3& direction) const { return map(direction, m_matrix, false); }
