#include "commands/CycleCall.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "commands/cycleKinds.h"
#include "commands/readArguments.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>

namespace {

using enum CycleArgument;

constexpr std::size_t kCommonArguments = 5;
enum Place : std::size_t { kRetract, kReference, kSafety, kDepth, kDepthRelative };

constexpr CycleArgument kDwellArguments[] = {kDwell};
constexpr CycleArgument kDeepArguments[] = {kFirstDepth,   kFirstDepthRelative, kDegression, kDwell,
                                            kDwellAtStart, kFirstFeedFactor,    kLiftsOut};
constexpr CycleArgument kFeedOutArguments[] = {kDwell, kFeedDown, kFeedUp};

constexpr CycleCallKind kKinds[] = {
    {"DRILL", &cycleKinds::kDrill, {}},
    {"DRILL_DWELL", &cycleKinds::kDrillDwell, kDwellArguments},
    {"DEEP", &cycleKinds::kDeep, kDeepArguments},
    {"FEED_OUT", &cycleKinds::kFeedOut, kFeedOutArguments},
    {"DWELL_OUT", &cycleKinds::kDwellOut, kDwellArguments},
};

// An absolute depth, or one below the reference plane; none when there are two that differ, or
// none.
std::optional<double> depthOf(std::optional<double> absolute, double relative, double reference) {
    if (relative == 0.0) {
        return absolute;
    }
    const double depth = reference - std::abs(relative);
    constexpr double kSame = 1e-9;
    const bool isContradiction =
        absolute.value_or(0.0) != 0.0 && std::abs(*absolute - depth) > kSame;
    return isContradiction ? std::nullopt : std::optional(depth);
}

} // namespace

CycleCall::~CycleCall() = default;

const CycleCallKind* CycleCall::FindKind(std::string_view name) noexcept {
    const auto* const row = std::ranges::find(kKinds, name, &CycleCallKind::name);
    return row == std::end(kKinds) ? nullptr : row;
}

void CycleCall::InitStatus(char* line) {
    SetNCLineStatus(FALSE);
    CycleCalls::Arguments arguments;
    if (!readArguments(line, arguments)) {
        keepCode(refuse("the arguments of a cycle are no numbers in brackets"));
    } else if (arguments.size() > kCommonArguments + m_kind.arguments.size()) {
        keepCode(refuse("a cycle has too many arguments"));
    } else {
        control().calls.Call(*this, std::move(arguments));
    }
}

int CycleCall::Act() {
    const std::string change =
        m_mark ? CoordinateMark(control()).ChangeSince(*m_mark) : std::string();
    if (!change.empty()) {
        return control().Refuse(kWordNotConverted, "the " + change +
                                                       " changes while a cycle is called by every "
                                                       "block: end that before");
    }
    CycleNumbers numbers;
    if (const int code = settle(numbers); code != 0) {
        return code;
    }
    const bool lifts = m_kind.kind->hasPeck && argument(kLiftsOut) == 0.0;
    const CycleKind& kind = lifts ? cycleKinds::kBreakChip : *m_kind.kind;
    if (const int code = checkNumbers(kind, numbers, 1.0); code != 0) {
        return code;
    }
    const int code = goAlong(TRUE, normalAxis(), numbers.clearance);
    return code != 0 ? code : walk(kind, numbers);
}

std::optional<double> CycleCall::given(std::size_t place) const noexcept {
    return place < m_arguments.size() ? m_arguments[place] : std::nullopt;
}

std::optional<double> CycleCall::given(CycleArgument argument) const noexcept {
    const auto found = std::ranges::find(m_kind.arguments, argument);
    return found == m_kind.arguments.end()
               ? std::nullopt
               : given(kCommonArguments +
                       static_cast<std::size_t>(found - m_kind.arguments.begin()));
}

int CycleCall::settle(CycleNumbers& numbers) const {
    const double reference = argument(kReference);
    const std::optional<double> depth = depthOf(given(kDepth), argument(kDepthRelative), reference);
    if (!depth) {
        return refuse("a cycle has no depth, or two that differ");
    }
    numbers.depth = *depth;
    numbers.clearance = reference + std::abs(argument(kSafety));
    numbers.back = argument(kRetract);
    if (reference <= numbers.depth || numbers.back < reference) {
        return refuse("retract plane, reference plane and depth of a cycle do not go down");
    }
    const double dwell = argument(kDwell);
    const double dwellAtStart = argument(kDwellAtStart);
    if (dwell < 0.0 || dwellAtStart < 0.0) {
        return refuse("the dwell of a cycle is below 0");
    }
    if (dwell != 0.0) {
        numbers.dwell = dwell;
    }
    if (dwellAtStart != 0.0) {
        numbers.dwellAtStart = dwellAtStart;
    }
    if (const int code = settleFeeds(numbers); code != 0) {
        return code;
    }
    return m_kind.kind->hasPeck ? settlePecks(reference, numbers) : 0;
}

int CycleCall::settlePecks(double reference, CycleNumbers& numbers) const {
    if (argument(kDegression) != 0.0) {
        return control().Refuse(kWordNotConverted, "a degression of pecks is not converted");
    }
    const double lifting = argument(kLiftsOut);
    if (lifting != 0.0 && lifting != 1.0) {
        return refuse("a cycle neither breaks chips (0) nor lifts out (1)");
    }
    const std::optional<double> first =
        depthOf(given(kFirstDepth), argument(kFirstDepthRelative), reference);
    if (!first) {
        return refuse("a cycle has no first depth, or two that differ");
    }
    numbers.firstPeck = numbers.clearance - *first;
    numbers.peck = reference - *first;
    numbers.lift = liftAlong(normalAxis());
    return 0;
}

int CycleCall::settleFeeds(CycleNumbers& numbers) const {
    const double down = argument(kFeedDown);
    const double up = argument(kFeedUp);
    const double factor = argument(kFirstFeedFactor);
    if (down < 0.0 || up < 0.0 || factor < 0.0 || factor > 1.0) {
        return refuse("a feed of a cycle is below 0, or its factor not within 0 and 1");
    }
    const auto given = [](double feed) { return feed == 0.0 ? std::nullopt : std::optional(feed); };
    numbers.feedDown = given(down);
    numbers.feedUp = given(up);
    numbers.firstFeed = given(factor * status().GetFeedRateSpeed());
    return 0;
}

int CycleCall::refuse(const char* reason) const { return control().Refuse(kBlockRefused, reason); }
