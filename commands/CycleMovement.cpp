#include "commands/CycleMovement.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMostPecks = 10'000'000.0; // of one block; more are a mistake

} // namespace

CycleMovement::CycleMovement(Control& control, MachineStatus& status) noexcept
    : PathMovement(&status), m_control(control) {}

CycleMovement::~CycleMovement() = default;

int CycleMovement::checkNumbers(const CycleKind& kind, const CycleNumbers& numbers,
                                double repeats) {
    if (std::isnan(numbers.clearance)) {
        return m_control.Refuse(kAxisUnknown, "the height at the start of a cycle is not known");
    }
    if (!(numbers.clearance >= numbers.depth)) {
        return m_control.Refuse(kBlockRefused, "the clearance of the cycle lies below its depth");
    }
    const double least = std::min(numbers.firstPeck, numbers.peck);
    if (kind.hasPeck && !(least > 0.0)) {
        return m_control.Refuse(kBlockRefused, "the cycle has no peck above 0");
    }
    const double pecks = kind.hasPeck ? (numbers.clearance - numbers.depth) / least + 1.0 : 1.0;
    const double farthest = std::max(std::abs(numbers.clearance), std::abs(numbers.depth));
    const bool getsDown = !kind.hasPeck || farthest - least < farthest;
    return getsDown && pecks * repeats <= kMostPecks
               ? m_control.AddParts(pecks * repeats - 1.0)
               : m_control.Refuse(kBlockRefused, "the cycle has too many pecks or repeats");
}

int CycleMovement::walk(const CycleKind& kind, const CycleNumbers& numbers) {
    m_programmedFeed = status().GetFeedRateSpeed();
    if (!m_control.RunsAlongTool(axesOf(m_control.plane).normal)) {
        status().Note(BlockNote::kCycleAside);
    }
    for (const CycleStep next : kind.steps) {
        if (const int code = step(next, kind, numbers); code != 0) {
            return code;
        }
    }
    return useFeed(m_programmedFeed);
}

int CycleMovement::step(CycleStep step, const CycleKind& kind, const CycleNumbers& numbers) {
    switch (step) {
    case CycleStep::kFeedDown:
        return feedTo(numbers.depth, numbers.feedDown);
    case CycleStep::kPeckOut:
        return peck(numbers, true);
    case CycleStep::kPeckBack:
        return peck(numbers, false);
    case CycleStep::kDwell:
        return pause(numbers.dwell);
    case CycleStep::kStop:
        return turningSpindle() == nullptr ? 0 : m_control.cycles.spindle.stop->Act();
    case CycleStep::kTurnBack:
        return turn(kind.turning, true);
    case CycleStep::kTurnAgain:
        return turn(kind.turning, false);
    case CycleStep::kShift:
        return shift(numbers.shift);
    case CycleStep::kShiftBack:
        return shift(-numbers.shift);
    case CycleStep::kFeedOut:
        return toHeight(FALSE,
                        m_control.cycles.rules.feedsToReturn ? numbers.back : numbers.clearance);
    case CycleStep::kFeedToClearance:
        return feedTo(numbers.clearance, numbers.feedUp);
    case CycleStep::kReturn:
        return toHeight(TRUE, numbers.back);
    }
    return 0;
}

// The depths are counted down one from the other, as controls do: where pecks end at the depth but
// for noise, there may be one more.
int CycleMovement::peck(const CycleNumbers& numbers, bool goesOut) {
    double depth = numbers.clearance - numbers.firstPeck;
    std::optional<double> feed = numbers.firstFeed;
    int code = 0;
    for (; code == 0 && depth > numbers.depth; depth -= numbers.peck) {
        code = feedTo(depth, feed);
        code = code != 0 ? code : pause(numbers.dwell);
        if (goesOut) {
            code = code != 0 ? code : toHeight(TRUE, numbers.clearance);
            code = code != 0 ? code : pause(numbers.dwellAtStart);
        }
        code = code != 0 ? code : toHeight(TRUE, depth + numbers.lift);
        feed = numbers.feedDown;
    }
    code = code != 0 ? code : feedTo(numbers.depth, feed);
    return code != 0 ? code : pause(numbers.dwell);
}

int CycleMovement::pause(const std::optional<double>& seconds) {
    if (seconds) {
        m_control.writer->WriteDelay(*seconds);
    }
    return 0;
}

int CycleMovement::feedTo(double height, const std::optional<double>& feed) {
    const int code = useFeed(feed.value_or(m_programmedFeed));
    return code != 0 ? code : toHeight(FALSE, height);
}

// Tells the feed where it changes.
int CycleMovement::useFeed(double feed) {
    if (feed == status().GetFeedRateSpeed()) {
        return 0;
    }
    status().InitFeedRateSpeed(feed);
    Command* const mode = status().GetFeedRateCom()->GetActiveCommand();
    return mode == nullptr ? 0 : mode->Act();
}

int CycleMovement::shift(double length) {
    const int axis = axesOf(m_control.plane).first;
    return goAlong(TRUE, axis, status().GetEndPosition()[axis] + length);
}

int CycleMovement::turn(CycleTurning turning, bool isBack) {
    const CycleSpindle& spindle = m_control.cycles.spindle;
    Command* command = turningSpindle();
    if (turning == CycleTurning::kClockwise) {
        command = isBack ? spindle.counterClockwise : spindle.clockwise;
    } else if (turning == CycleTurning::kCounterClockwise) {
        command = isBack ? spindle.clockwise : spindle.counterClockwise;
    }
    return command == nullptr ? 0 : command->Act();
}

int CycleMovement::goTo(Boolean rapid, const gmVector3& point) {
    const gmVector3 now = status().GetEndPosition();
    const bool isThere = now[0] == point[0] && now[1] == point[1] && now[2] == point[2];
    const bool turns = m_control.rotary != nullptr && m_control.rotary->HasWords();
    return isThere && !turns ? 0 : moveTo(rapid, point);
}

int CycleMovement::goAlong(Boolean rapid, int axis, double coordinate) {
    gmVector3 point = status().GetEndPosition();
    point[axis] = coordinate;
    return goTo(rapid, point);
}

int CycleMovement::normalAxis() const noexcept { return axesOf(m_control.plane).normal; }

double CycleMovement::alongAxis(double length, int axis) const {
    gmVector3 point;
    point[axis] = length;
    return m_control.FromLengths(point, Mapping())[axis];
}

double CycleMovement::liftAlong(int axis) const {
    const double unit = m_control.units.IsInch() ? LengthUnits::kMillimetresPerInch : 1.0;
    return alongAxis(m_control.cycles.rules.lift / unit, axis);
}

Command* CycleMovement::turningSpindle() const {
    Command* const active = status().GetSpindleCom()->GetActiveCommand();
    const CycleSpindle& spindle = m_control.cycles.spindle;
    return active == spindle.clockwise || active == spindle.counterClockwise ? active : nullptr;
}
