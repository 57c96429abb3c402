#pragma once

#include "softCommon/CMathUtil/gmVec3.h"

/// Where the tool is in the part's frame.
struct ToolPlace {
    gmVector3 tip;
    gmVector3 axis; ///< length 1
};
