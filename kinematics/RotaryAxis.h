#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

/// One rotary axis of a machine as it lies when all axes are at zero.
struct RotaryAxis {
    gmVector3 direction;     ///< length 1
    gmVector3 centre;        ///< mm, on a table a point, on a head its distance from the tip
    bool isOnHead = false;   ///< it turns the tool; else the part
    bool isReversed = false; ///< a positive angle turns the tool relative to the part left-handed
};
