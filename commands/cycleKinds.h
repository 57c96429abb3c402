#pragma once

#include "commands/CycleStep.h"

/// The kinds of cycles that controls have, as tables of their steps.
namespace cycleKinds {

extern const CycleKind kDrill;
extern const CycleKind kDrillDwell;
extern const CycleKind kDeep;
extern const CycleKind kBreakChip;
extern const CycleKind kTap;
extern const CycleKind kTapLeft;
extern const CycleKind kFeedOut;
extern const CycleKind kStopOut;
extern const CycleKind kDwellOut;
extern const CycleKind kFineBore;

} // namespace cycleKinds
