#include "commands/cycleKinds.h"

namespace cycleKinds {

namespace {

using enum CycleStep;

constexpr CycleStep kDrillSteps[] = {kFeedDown, kDwell, kReturn};
constexpr CycleStep kDeepSteps[] = {kPeckOut, kReturn};
constexpr CycleStep kBreakChipSteps[] = {kPeckBack, kReturn};
constexpr CycleStep kTapSteps[] = {kFeedDown,           kTurnBack,  kDwell,
                                   CycleStep::kFeedOut, kTurnAgain, kReturn};
constexpr CycleStep kFeedOutSteps[] = {kFeedDown, kDwell, kFeedToClearance, kReturn};
constexpr CycleStep kDwellOutSteps[] = {kFeedDown, kDwell, CycleStep::kFeedOut, kReturn};
constexpr CycleStep kStopOutSteps[] = {kFeedDown, kDwell, kStop, kReturn, kTurnAgain};
constexpr CycleStep kFineBoreSteps[] = {kFeedDown, kDwell,     kStop,     kShift,
                                        kReturn,   kShiftBack, kTurnAgain};

using Dwell = CycleDwell;
using Turning = CycleTurning;

} // namespace

constexpr CycleKind kDrill = {.steps = kDrillSteps, .dwell = Dwell::kOwn};
constexpr CycleKind kDrillDwell = {.steps = kDrillSteps, .dwell = Dwell::kWanted};
constexpr CycleKind kDeep = {.steps = kDeepSteps, .hasPeck = true};
constexpr CycleKind kBreakChip = {.steps = kBreakChipSteps, .hasPeck = true};
constexpr CycleKind kTap = {
    .steps = kTapSteps, .dwell = Dwell::kKept, .turning = Turning::kClockwise};
constexpr CycleKind kTapLeft = {
    .steps = kTapSteps, .dwell = Dwell::kKept, .turning = Turning::kCounterClockwise};
constexpr CycleKind kFeedOut = {.steps = kFeedOutSteps};
constexpr CycleKind kStopOut = {
    .steps = kStopOutSteps, .dwell = Dwell::kWanted, .turning = Turning::kEither};
constexpr CycleKind kDwellOut = {.steps = kDwellOutSteps, .dwell = Dwell::kWanted};
constexpr CycleKind kFineBore = {
    .steps = kFineBoreSteps, .dwell = Dwell::kKept, .turning = Turning::kEither, .hasShift = true};

} // namespace cycleKinds
