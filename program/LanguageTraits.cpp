#include "program/LanguageTraits.h"

namespace {

constexpr int of(MachineQuantity quantity) { return static_cast<int>(quantity); }

using enum MachineQuantity;

bool isGlobalName(std::string_view name) { return name.starts_with('_'); }
bool isLocalName(std::string_view name) { return !name.starts_with('_'); }

constexpr NumberRange kOWordLocals[] = {{.first = 1, .last = 30}};
constexpr NumberRange kOWordNumbers[] = {
    {.first = 31, .last = 5399}, {.first = 5401, .last = 5419}, {.first = 5429, .last = 5602}};
constexpr SystemVariable kOWordSystem[] = {
    {.name = {}, .first = 5420, .last = 5428, .quantity = of(kPosition)},
    {.name = {}, .first = 5400, .last = 5400, .quantity = of(kTool)},
    {.name = "_X", .quantity = of(kPosition)},
    {.name = "_Y", .quantity = of(kPositionY)},
    {.name = "_Z", .quantity = of(kPositionZ)},
    {.name = "_FEED", .quantity = of(kFeed)},
    {.name = "_RPM", .quantity = of(kSpeed)},
    {.name = "_CURRENT_TOOL", .quantity = of(kTool)},
    {.name = "_METRIC", .quantity = of(kIsMetric)},
    {.name = "_IMPERIAL", .quantity = of(kIsImperial)},
    {.name = "_ABSOLUTE", .quantity = of(kIsAbsolute)},
    {.name = "_INCREMENTAL", .quantity = of(kIsIncremental)},
    {.name = "_TASK", .quantity = of(kZero)},
};

constexpr NumberRange kHashLocals[] = {{.first = 1, .last = 33, .unset = UnsetVariable::kVacant}};
constexpr NumberRange kHashNumbers[] = {
    {.first = 0, .last = 0, .unset = UnsetVariable::kVacant, .isReadOnly = true},
    {.first = 100, .last = 999, .unset = UnsetVariable::kVacant}};
constexpr SystemVariable kHashSystem[] = {
    {.name = {}, .first = 5001, .last = 5003, .quantity = of(kPosition)},
    {.name = {}, .first = 5041, .last = 5043, .quantity = of(kPosition)},
    {.name = {}, .first = 4001, .last = 4001, .quantity = of(kMovementCode)},
    {.name = {}, .first = 4003, .last = 4003, .quantity = of(kDistanceCode)},
    {.name = {}, .first = 4006, .last = 4006, .quantity = of(kUnitsCode)},
    {.name = {}, .first = 4109, .last = 4109, .quantity = of(kFeed)},
    {.name = {}, .first = 4119, .last = 4119, .quantity = of(kSpeed)},
    {.name = {}, .first = 4120, .last = 4120, .quantity = of(kTool)},
    {.name = {}, .first = 3000, .last = 3000, .quantity = of(kAlarm), .isWritable = true},
    // Timers, single block, feed hold, stop with a message: nothing of the path.
    {.name = {}, .first = 3001, .last = 3006, .quantity = of(kZero), .isWritable = true},
};

constexpr NumberRange kRNumbers[] = {{.first = 0, .last = 999}};

constexpr LanguageTraits kOWord = {
    .localNumbers = kOWordLocals,
    .programNumbers = kOWordNumbers,
    .system = kOWordSystem,
    .takesLocalName = isLocalName,
    .takesProgramName = isGlobalName,
    .resultName = "_VALUE",
    .hasResultName = "_VALUE_RETURNED",
    .assignsBehindBlock = true,
    .roundsWholeWords = false,
    .wholeTolerance = 1e-4,
};
constexpr LanguageTraits kHash = {
    .localNumbers = kHashLocals,
    .programNumbers = kHashNumbers,
    .system = kHashSystem,
    .takesLocalName = nullptr,
    .takesProgramName = nullptr,
    .resultName = {},
    .hasResultName = {},
    .assignsBehindBlock = false,
    .roundsWholeWords = true,
    .wholeTolerance = 0.0,
};
constexpr LanguageTraits kRParameter = {
    .localNumbers = {},
    .programNumbers = kRNumbers,
    .system = {},
    .takesLocalName = nullptr,
    .takesProgramName = nullptr,
    .resultName = {},
    .hasResultName = {},
    .assignsBehindBlock = false,
    .roundsWholeWords = false,
    .wholeTolerance = 1e-4,
};

} // namespace

const LanguageTraits& traitsOf(ProgramLanguage language) noexcept {
    switch (language) {
    case ProgramLanguage::kHash:
        return kHash;
    case ProgramLanguage::kRParameter:
        return kRParameter;
    default:
        return kOWord;
    }
}
