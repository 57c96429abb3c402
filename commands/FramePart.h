#pragma once

#include "softCommon/CMathUtil/gmMat4.h"

/// What a frame does to the coordinates of a program.
enum class FrameKind { kShift, kRotate, kScale, kMirror };

/// One step of a frame, and the way back. Points are rows.
struct FramePart {
    FrameKind kind = FrameKind::kShift;
    int axis = 0; ///< of a mirror: the axis whose sign changes
    gmMatrix4 matrix = gmMatrix4::identity();
    gmMatrix4 inverse = gmMatrix4::identity();
};
