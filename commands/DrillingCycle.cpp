#include "commands/DrillingCycle.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kWhole = 1e-4; // by which a number of repeats may be off

} // namespace

DrillingCycle::~DrillingCycle() = default;

void DrillingCycle::InitStatus(char* line) {
    control().cycles.Enter(*this, status().GetMovementCom()->GetActiveCommand());
    PathMovement::InitStatus(line);
}

// The words of a cycle may belong to another code where the block has neither position nor code.
bool DrillingCycle::TakeWords(char* line) {
    m_hasPosition = PathMovement::TakeWords(line);
    m_words = {};
    m_hasCode = GetNCLineStatus() == TRUE;
    const bool isCycleBlock = m_hasPosition || m_hasCode;
    if (isCycleBlock) {
        const CycleWords& words = control().cycles.words;
        m_words.clearance = words.clearance.Take(line, status());
        m_words.repeat = words.repeat.Take(line, status());
        if (m_kind.hasPeck || m_kind.hasShift) {
            m_words.peck = words.peck.Take(line, status());
        }
        if (m_kind.dwell != CycleDwell::kNone) {
            m_words.dwell = takeDwell(line);
        }
    }
    return isCycleBlock;
}

std::optional<double> DrillingCycle::takeDwell(char* line) const {
    const CycleWords& words = control().cycles.words;
    if (const auto seconds = words.pause.Take(line, status())) {
        return seconds;
    }
    const auto milliseconds = words.pauseMilliseconds.Take(line, status());
    return milliseconds ? std::optional(*milliseconds / 1000.0) : std::nullopt;
}

int DrillingCycle::Act() {
    CycleMode& mode = control().cycles;
    if (!m_hasPosition && mode.rules.isStrict) {
        return refuse("a cycle code has no position");
    }
    m_depth = takeDepth();
    const bool needsPeck = m_kind.hasPeck || m_kind.hasShift;
    const bool givesAll = m_hasCode && m_words.clearance && m_depth && (m_words.peck || !needsPeck);
    if (const int code = mode.Use(control(), status().GetEndPosition()[normalAxis()], givesAll);
        code != 0) {
        return code;
    }
    m_position.Hold(Axes());
    if (const int code = checkCode(); code != 0) {
        return code;
    }
    keepNumbers();
    if (!m_hasPosition) {
        return 0;
    }
    CycleNumbers numbers;
    const int code = settle(numbers);
    return code != 0 ? code : drill(numbers);
}

// The word along the normal is no position. It is consumed.
std::optional<CycleHeight> DrillingCycle::takeDepth() const {
    std::optional<CycleHeight> depth;
    const auto& [incremental, absolute] = Axes()[static_cast<std::size_t>(normalAxis())];
    for (Parameter* const word : {incremental, absolute}) {
        if (word != nullptr && word->GetNCLineStatus() == TRUE) {
            const bool isMarked = word->IsExplicit() || word->GetIncStatus() == TRUE;
            depth = {.value = word->GetValue(),
                     .isIncremental =
                         isMarked ? word->GetIncStatus() == TRUE : isIncrementalMode()};
            word->SetNCLineStatus(FALSE);
        }
    }
    return depth;
}

int DrillingCycle::checkCode() {
    if (m_words.dwell && *m_words.dwell < 0.0) {
        return refuse("the dwell of a cycle is below 0");
    }
    const CycleMode& mode = control().cycles;
    if (!mode.rules.isStrict || !mode.IsNewCode()) {
        return 0;
    }
    if (!m_words.clearance) {
        return refuse("a cycle begins without its clearance");
    }
    if (!m_depth) {
        return refuse("a cycle begins without its depth");
    }
    if (m_kind.hasPeck && !m_words.peck) {
        return refuse("a cycle begins without its peck");
    }
    return m_kind.dwell == CycleDwell::kWanted && !m_words.dwell
               ? refuse("a cycle begins without its dwell")
               : 0;
}

void DrillingCycle::keepNumbers() {
    CycleMode& mode = control().cycles;
    if (m_words.clearance) {
        mode.clearance = {.value = *m_words.clearance, .isIncremental = isIncrementalMode()};
    }
    if (m_depth) {
        mode.depth = m_depth;
    }
    if (m_words.peck) {
        mode.peck = m_words.peck;
    }
    if (m_words.dwell) {
        mode.dwell = m_words.dwell;
    }
    if (m_words.dwell || mode.IsNewCode()) {
        m_ownDwell = m_words.dwell;
    }
    mode.EndCode();
}

int DrillingCycle::settle(CycleNumbers& numbers) const {
    const CycleMode& mode = control().cycles;
    if (!mode.clearance) {
        return refuse("a cycle has no clearance");
    }
    if (!mode.depth) {
        return refuse("a cycle has no depth");
    }
    const auto heightOf = [&](const CycleHeight& height, double base) {
        const bool isIncremental = mode.rules.isStrict ? isIncrementalMode() : height.isIncremental;
        return isIncremental ? base + height.value : height.value;
    };
    const int normal = normalAxis();
    if (mode.rules.returnsToStart && std::isnan(mode.StartHeight())) {
        return control().Refuse(kAxisUnknown, "the height at the start of a cycle is not known");
    }
    numbers.clearance = heightOf(*mode.clearance, mode.StartHeight());
    numbers.depth = heightOf(*mode.depth, numbers.clearance);
    numbers.back = mode.rules.returnsToStart ? std::max(numbers.clearance, mode.StartHeight())
                                             : numbers.clearance;
    const double peck = mode.peck.value_or(0.0);
    numbers.peck = alongAxis(peck, normal);
    numbers.firstPeck = numbers.peck;
    numbers.lift = liftAlong(normal);
    numbers.shift = alongAxis(peck, axesOf(control().plane).first);
    if (m_kind.hasShift && !(peck > 0.0)) {
        return refuse("the cycle has no shift above 0");
    }
    if (m_kind.dwell != CycleDwell::kNone) {
        numbers.dwell = m_kind.dwell == CycleDwell::kOwn ? m_ownDwell : mode.dwell;
    }
    return 0;
}

int DrillingCycle::drill(const CycleNumbers& numbers) {
    const double repeat = m_words.repeat.value_or(1.0);
    const double least = control().cycles.rules.isStrict ? 1.0 : 0.0;
    const double passes = std::round(repeat);
    if (!(std::abs(repeat - passes) <= kWhole && passes >= least)) {
        return refuse("the number of repeats of a cycle is not whole and above 0");
    }
    if (const int code = checkNumbers(m_kind, numbers, passes); code != 0) {
        return code;
    }
    if (const int code = checkMachine(); code != 0) {
        return code;
    }
    for (auto pass = static_cast<long>(passes); pass > 0; --pass) {
        m_position.Restore();
        if (control().rotary != nullptr && pass < static_cast<long>(passes)) {
            control().rotary->Repeat();
        }
        gmVector3 place;
        if (const int code = resolveEndPoint(place); code != 0) {
            return code;
        }
        if (const int code = approach(place, numbers); code != 0) {
            return code;
        }
        if (const int code = walk(m_kind, numbers); code != 0) {
            return code;
        }
    }
    return 0;
}

int DrillingCycle::checkMachine() {
    const CycleMode& mode = control().cycles;
    if (const int code = control().CheckUncompensated(); code != 0) {
        return code;
    }
    if (!mode.rules.isStrict || m_kind.turning == CycleTurning::kAny) {
        return 0;
    }
    const Command* const turning = turningSpindle();
    const bool isWanted =
        (turning == mode.spindle.clockwise && m_kind.turning != CycleTurning::kCounterClockwise) ||
        (turning == mode.spindle.counterClockwise && m_kind.turning != CycleTurning::kClockwise);
    return turning != nullptr && isWanted && !control().awaitsSpindle
               ? 0
               : refuse("the spindle does not turn as the cycle wants");
}

int DrillingCycle::approach(gmVector3 place, const CycleNumbers& numbers) {
    const CycleMode& mode = control().cycles;
    const int normal = normalAxis();
    if (mode.rules.goesStraight) {
        if (mode.StartHeight() < numbers.clearance) {
            if (const int code = goAlong(TRUE, normal, numbers.clearance); code != 0) {
                return code;
            }
        }
        const double now = status().GetEndPosition()[normal];
        place[normal] = now > numbers.clearance ? now : numbers.back;
    }
    const int code = goTo(TRUE, place);
    return code != 0 ? code : goAlong(TRUE, normal, numbers.clearance);
}

int DrillingCycle::refuse(const char* reason) const {
    return control().Refuse(kBlockRefused, reason);
}
