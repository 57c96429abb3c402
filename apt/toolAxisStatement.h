#pragma once

#include "apt/StatementText.h"
#include "softCommon/CMathUtil/gmVec3.h"

/// "TLAXIS/" with the direction of the tool axis, the same for every kind of movement.
[[nodiscard]] StatementText toolAxisStatement(const gmVector3& axis);
