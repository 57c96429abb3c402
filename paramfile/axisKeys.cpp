#include "paramfile/keys.h"

#include "commands/Control.h"
#include "commands/InverseTime.h"
#include "commands/Parameter.h"
#include "commands/RtcpCommand.h"
#include "driver/returnCodes.h"
#include "paramfile/MachineSection.h"
#include "paramfile/ModelBuilder.h"
#include "paramfile/readReals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

using Section = MachineSection;

// Entries of the machine are older than rotary words, and count only where there are some.
// The argument is the number of the entry.
int machineEntry(ModelBuilder& builder, const KeyValue& value, int argument) {
    const auto number = static_cast<std::size_t>(argument);
    builder.Machine().Set(static_cast<Section::Place>(number / Section::kPropertyCount),
                          static_cast<Section::Property>(number % Section::kPropertyCount),
                          value.text);
    return 0;
}

int oldNutator(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.Machine().SetOldNutator(value.text);
    return 0;
}

/// The argument is the axis.
template<bool IsIncremental>
int rotaryAddress(ModelBuilder& builder, const KeyValue& value, int argument) {
    WordList& list = builder.GetRotary().words.at(static_cast<std::size_t>(argument));
    if (const int code = builder.AddAddress(value, list); code != 0) {
        return code;
    }
    builder.AddedWord()->ReadWays();
    builder.AddedWord()->InitStandardInc(IsIncremental ? TRUE : FALSE);
    builder.AskForRotaryAxes();
    return 0;
}

int vectorAddress(ModelBuilder& builder, const KeyValue& value, int argument) {
    return builder.AddAddress(
        value, builder.GetRotary().vectorWords.at(static_cast<std::size_t>(argument)));
}

template<bool IsOn, bool TakesVectors>
int rtcp(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    builder.GetRotary().hasVectorCode |= TakesVectors;
    return builder.AddCode<RtcpCommand>(value, ActionKind::kShift, builder.GetStages(), IsOn,
                                        TakesVectors);
}

int inverseTime(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    Control& control = builder.GetStages();
    control.computesArcs = true;
    return builder.AddMember<InverseTime>(value, ActionKind::kFeed, ModalGroup::kFeedRate,
                                          &builder.Status(), control);
}

/// Keeps a switch, and does not ask for anything by it.
template<auto Use>
int choice(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    Use(builder, text == "1");
    return text == "1" || text == "0" ? 0 : int{kKeyValueUnknown};
}

constexpr auto kStartRtcp = [](ModelBuilder& builder, bool isOn) {
    builder.GetRotary().isRtcpOn = isOn;
};
constexpr auto kTableOnly = [](ModelBuilder& builder, bool isOn) {
    builder.GetRotary().rtcp.head = !isOn;
};
constexpr auto kHeadOnly = [](ModelBuilder& builder, bool isOn) {
    builder.GetRotary().rtcp.table = !isOn;
};
constexpr auto kPivot = [](ModelBuilder& builder, bool isOn) {
    builder.GetRotary().chain.GivePivot(isOn);
};

int carrier(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::string_view text = value.text;
    (void)builder.GetRotary();
    builder.Machine().SetCarrier(text == "2" ? 1 : 0);
    return text == "1" || text == "2" ? 0 : int{kKeyValueUnknown};
}

int axisTolerance(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::optional<double> number = readOneReal(value.text);
    if (!number || !(*number > 0.0)) {
        return kKeyValueUnknown;
    }
    builder.GetRotary().axisTolerance = *number;
    return 0;
}

int nutator(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    const std::optional<double> number = readOneReal(value.text);
    if (!number) {
        return kKeyValueUnknown;
    }
    (void)builder.GetRotary();
    builder.Machine().SetNutator(*number);
    return 0;
}

int headToolLength(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    std::array<double, 2> numbers{};
    constexpr double kMostTools = 1e9;
    if (!readReals(value.text, numbers) || numbers[0] != std::floor(numbers[0]) ||
        std::abs(numbers[0]) > kMostTools) {
        return kKeyValueUnknown;
    }
    builder.GetRotary().toolLengths[static_cast<int>(numbers[0])] = numbers[1];
    return 0;
}

int rotaryWay(ModelBuilder& builder, const KeyValue& value, int /*argument*/) {
    constexpr std::pair<std::string_view, RotaryWay> kWays[] = {
        {"LINEAR", RotaryWay::kLinear},
        {"SHORTEST", RotaryWay::kShortest},
        {"SIGN", RotaryWay::kSign},
    };
    for (const auto& [name, way] : kWays) {
        if (name == value.text) {
            builder.GetRotary().way = way;
            return 0;
        }
    }
    return kKeyValueUnknown;
}

using enum KeyKind;
using enum Key::Form;

constexpr Key kProgramKeys[] = {
    {"N3C_NUTATOR_ANGLE", kPassing, kText, oldNutator},
    {"REV_ROTARY_1ST", kWhole, kAddress, rotaryAddress<false>, 0, true},
    {"REV_ROTARY_2ND", kWhole, kAddress, rotaryAddress<false>, 1, true},
    {"REV_ROTARY_1ST_INCR", kWhole, kAddress, rotaryAddress<true>, 0, true},
    {"REV_ROTARY_2ND_INCR", kWhole, kAddress, rotaryAddress<true>, 1, true},
    {"REV_TOOL_VECTOR_1ST", kWhole, kAddress, vectorAddress, 0, true},
    {"REV_TOOL_VECTOR_2ND", kWhole, kAddress, vectorAddress, 1, true},
    {"REV_TOOL_VECTOR_3RD", kWhole, kAddress, vectorAddress, 2, true},
    {"REV_RTCP_ON", kWhole, kText, rtcp<true, false>, 0, true},
    {"REV_RTCP_OFF", kWhole, kText, rtcp<false, false>, 0, true},
    {"REV_TOOL_VECTOR_ON", kWhole, kText, rtcp<true, true>, 0, true},
    {"REV_FEED_INVERSE_TIME", kWhole, kText, inverseTime, 0, true},
    {"REV_CARRIER", kWhole, kText, carrier},
    {"REV_AXIS_TOLERANCE", kWhole, kText, axisTolerance},
    {"REV_RTCP_START", kWhole, kText, choice<kStartRtcp>},
    {"REV_RTCP_TABLE_ONLY", kWhole, kText, choice<kTableOnly>},
    {"REV_RTCP_HEAD_ONLY", kWhole, kText, choice<kHeadOnly>},
    {"REV_PIVOT_POSITIONS", kWhole, kText, choice<kPivot>},
    {"REV_NUTATOR_ANGLE", kWhole, kText, nutator},
    {"REV_HEAD_TOOL_LENGTH", kWhole, kText, headToolLength, 0, true},
    {"REV_ROTARY_WAY", kWhole, kText, rotaryWay},
};

constexpr std::size_t kEntries = std::size_t{Section::kPlaceCount} * Section::kPropertyCount;

// Those of the machine come first.
constexpr auto kAxisKeys = [] {
    std::array<Key, kEntries + std::size(kProgramKeys)> keys{};
    for (std::size_t i = 0; i < kEntries; ++i) {
        const auto& ofPlace = Section::kKeys[i / Section::kPropertyCount];
        keys[i] = {ofPlace[i % Section::kPropertyCount], kPassing, kText, machineEntry,
                   static_cast<int>(i)};
    }
    std::ranges::copy(kProgramKeys, keys.begin() + kEntries);
    return keys;
}();

} // namespace

std::span<const Key> axisKeys() noexcept { return kAxisKeys; }
