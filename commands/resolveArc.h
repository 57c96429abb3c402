#pragma once

#include "commands/ArcRequest.h"
#include "commands/Sweep.h"

#include <string>

/// Computes the arc as a control does. Returns an empty text, or the reason why a control refuses
/// it; `sweep` is then undefined.
[[nodiscard]] std::string resolveArc(const ArcRequest& request, Sweep& sweep);
