#pragma once

#include "commands/FramePart.h"
#include "softCommon/CMathUtil/gmMat4.h"
#include "softCommon/CMathUtil/gmVec3.h"

#include <vector>

/// The frame of a program: shifts, rotations, scalings and mirrors, one within the other, as one
/// matrix. The part added last acts on a point of the program first. Lengths are in the unit of the
/// program.
class Frame {
public:
    [[nodiscard]] bool IsEmpty() const noexcept { return m_parts.empty(); }
    /// Throws std::bad_alloc, as Add.
    void Add(const FramePart& part);
    void Clear();
    void Remove(FrameKind kind);
    void RemoveMirror(int axis);
    void Rescale(double factor);

    /// A point of the program as one of its zero system, and back.
    [[nodiscard]] gmVector3 Apply(const gmVector3& point) const;
    [[nodiscard]] gmVector3 Undo(const gmVector3& point) const;
    /// The same for a direction.
    [[nodiscard]] gmVector3 Turn(const gmVector3& direction) const;

private:
    void multiply();

    std::vector<FramePart> m_parts;
    gmMatrix4 m_matrix = gmMatrix4::identity();
    gmMatrix4 m_inverse = gmMatrix4::identity();
};
