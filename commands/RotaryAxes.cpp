#include "commands/RotaryAxes.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "commands/Parameter.h"
#include "commands/withoutNoise.h"
#include "driver/returnCodes.h"
#include "kinematics/greatArc.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr double kTurn = 360.0;

// From 0 to below a turn; what computing leaves of a whole turn is 0.
double positiveWay(double way) noexcept {
    constexpr double kNoise = 1e-9;
    const double rest = way - kTurn * std::floor(way / kTurn);
    return rest > kTurn - kNoise ? 0.0 : rest;
}

double wayTo(double target, double present, RotaryWay way) noexcept {
    const double up = positiveWay(target - present);
    switch (way) {
    case RotaryWay::kShortest:
        return up > kTurn / 2.0 ? up - kTurn : up;
    case RotaryWay::kNegative:
        return up == 0.0 ? 0.0 : up - kTurn;
    default:
        return up;
    }
}

bool isAny(const auto& values) noexcept {
    return std::ranges::any_of(values, [](const auto& value) { return value.has_value(); });
}

// A word of arcs keeps its meaning where no vector counts.
bool isCentreWord(const Parameter& word, const Control& control) noexcept {
    return std::ranges::any_of(control.words.centres, [&](const Parameter* centre) {
        return centre != nullptr &&
               std::strcmp(centre->GetSyntaxString(), word.GetSyntaxString()) == 0;
    });
}

} // namespace

bool RotaryAxes::TakeWords(char* line, MachineStatus& status) {
    bool found = false;
    for (std::size_t axis = 0; axis < words.size(); ++axis) {
        if (Parameter* const word = words.at(axis).TakeWord(line, status)) {
            m_values.at(axis) = {
                .value = valueOf(*word), .isMinus = word->IsMinus(), .way = word->Way()};
            found = true;
        }
    }
    return found;
}

bool RotaryAxes::TakeVector(char* line, const Control& control) {
    bool found = false;
    for (std::size_t i = 0; i < vectorWords.size(); ++i) {
        const WordList& list = vectorWords.at(i);
        if (!takesVectors() &&
            list.HasAny([&](const Parameter& word) { return isCentreWord(word, control); })) {
            continue;
        }
        if (const auto value = list.Take(line, control.Status())) {
            m_vectorValues.at(i) = value;
            found = true;
        }
    }
    return found;
}

RotaryValues RotaryAxes::TakeValues() noexcept { return std::exchange(m_values, {}); }

bool RotaryAxes::AskForTurn(const Control& control) const {
    for (std::size_t axis = 0; axis < m_values.size(); ++axis) {
        if (m_values.at(axis) && targetOf(axis, *m_values.at(axis), control) != m_angles.at(axis)) {
            return true;
        }
    }
    return false;
}

void RotaryAxes::StandAsAimed() noexcept {
    for (std::size_t axis = 0; axis < m_aimsAtZero.size(); ++axis) {
        if (std::exchange(m_aimsAtZero.at(axis), false)) {
            m_angles.at(axis) = 0.0;
            m_vector.reset();
        }
    }
}

void RotaryAxes::ForgetWords() noexcept {
    m_values = {};
    m_usedValues = {};
    m_aimsAtZero = {};
    m_vectorValues = {};
    m_countsVectors.reset();
}

bool RotaryAxes::HasWords() const noexcept {
    return isAny(m_values) || isAny(m_vectorValues) || m_aimsAtZero[0] || m_aimsAtZero[1];
}

double RotaryAxes::OffsetOf(std::size_t axis, std::size_t system) const {
    const auto i = static_cast<int>(axis);
    return shift.Get()[i] + localShift[i] + frameShift[i] + OriginOf(axis, system);
}

double RotaryAxes::OriginOf(std::size_t axis, std::size_t system) const {
    return system < m_origins.size() ? m_origins[system][static_cast<int>(axis)] : 0.0;
}

void RotaryAxes::SetOrigin(std::size_t system, std::size_t axis, double angle) {
    m_origins.resize(std::max(m_origins.size(), system + 1));
    m_origins[system][static_cast<int>(axis)] = angle;
}

int RotaryAxes::Resolve(Control& control, Turning& turning) {
    turning.from = m_angles;
    turning.axisFrom = ToolAxis();
    const bool hadVector = m_vector.has_value();
    const RotaryValues values = TakeValues();
    if (isAny(values)) {
        m_usedValues = values;
    }
    const auto vector = std::exchange(m_vectorValues, {});
    if (isAny(values) && isAny(vector)) {
        return control.Refuse(kBlockRefused, "a block has a tool vector and a rotary axis");
    }
    int code = turnByWords(control, values);
    if (code == 0 && isAny(vector)) {
        gmVector3 direction(vector[0].value_or(0.0), vector[1].value_or(0.0),
                            vector[2].value_or(0.0));
        code = turnByVector(control, direction);
    }
    turning.to = m_angles;
    turning.axisTo = ToolAxis();
    turning.onGreatArc = hadVector || m_vector;
    turning.byAngles = !turning.onGreatArc && turning.from != turning.to;
    return code;
}

int RotaryAxes::turnByWords(Control& control, const RotaryValues& values) {
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        const bool aimsAtZero = std::exchange(m_aimsAtZero.at(axis), false);
        const auto& word = values.at(axis);
        if (!word && !aimsAtZero) {
            continue;
        }
        if (word && axis >= chain.Count()) {
            return control.Refuse(kRotaryRefused, "the machine has no such rotary axis");
        }
        m_angles.at(axis) = word ? targetOf(axis, *word, control) : 0.0;
        if (std::isinf(m_angles.at(axis))) {
            return control.Refuse(kBlockRefused, "a position is beyond all numbers");
        }
        m_vector.reset(); // the tool stands as the axes do
        checkLimits(axis, word, control.Status());
    }
    return 0;
}

double RotaryAxes::targetOf(std::size_t axis, const RotaryWord& word,
                            const Control& control) const {
    const double present = m_angles.at(axis);
    const double number = word.value.value;
    const RotaryWay own = word.way.value_or(way);
    if (!word.way && control.IsIncremental(word.value)) {
        return present + number;
    }
    const double offset =
        control.movesInMachine ? 0.0 : OffsetOf(axis, control.coordinates.zeros.Current());
    if (own == RotaryWay::kLinear || std::isnan(present)) {
        return number + offset;
    }
    if (own == RotaryWay::kSign) {
        const RotaryWay side = word.isMinus ? RotaryWay::kNegative : RotaryWay::kPositive;
        return present + wayTo(std::abs(number) + offset, present, side);
    }
    return present + wayTo(number + offset, present, own);
}

void RotaryAxes::checkLimits(std::size_t axis, const std::optional<RotaryWord>& word,
                             MachineStatus& status) {
    const auto& [low, high] = limits.at(axis);
    const double angle = m_angles.at(axis);
    const bool counts = low < high && word && word->way.value_or(way) == RotaryWay::kLinear;
    if (counts && (angle < low || angle > high) && !std::exchange(m_isLimitTold.at(axis), true)) {
        status.Note(axis == 0 ? BlockNote::kRotaryLimit : BlockNote::kRotaryLimit2);
    }
}

int RotaryAxes::turnByVector(Control& control, gmVector3& vector) {
    constexpr double kSame = 1e-12; // radians
    if (!takesVectors() || !IsInUse()) {
        return control.Refuse(kRotaryRefused, "a tool vector stands where none counts");
    }
    const double longest =
        std::max({std::abs(vector[0]), std::abs(vector[1]), std::abs(vector[2])});
    if (!(longest > 0.0) || std::isinf(longest)) {
        return control.Refuse(kRotaryRefused, "a tool vector has no direction");
    }
    vector = control.coordinates.DirectionToStart(vector * (1.0 / longest));
    vector *= 1.0 / vector.length();
    if (!(angleBetween(vector, ToolAxis()) <= kSame)) {
        m_vector = vector;
        m_angles.fill(AxisKnowledge::kUnknown);
    }
    return 0;
}

bool RotaryAxes::HidesMachine() const {
    return isRtcpOn && !chain.PoseAt(m_angles, {}).IsIdentity();
}

void RotaryAxes::SwitchRtcp(Control& control, bool isOn, bool takesVectors) {
    const double unit = control.units.Millimetres();
    const gmVector3 position = control.coordinates.ToStart(control.Position()) * unit;
    const gmVector3 tip = Pose().TipOf(position);
    isRtcpOn = isOn;
    control.hasToolLength = isOn; // which the control has to know then
    m_takesVectors = takesVectors;
    noteLength(control.Status());
    const gmVector3 same = withoutNoise(Pose().PositionOf(tip));
    if (same != withoutNoise(position)) {
        control.SetPosition(control.coordinates.FromStart(same * (1.0 / unit)));
    }
}

void RotaryAxes::ChangeTool(int number, MachineStatus& status) {
    const auto length = toolLengths.find(number);
    m_lacksLength = length == toolLengths.end();
    chain.SetToolLength(m_lacksLength ? 0.0 : length->second);
    noteLength(status);
}

// Once for each tool, where it first matters.
void RotaryAxes::noteLength(MachineStatus& status) {
    if (chain.HasHead() && !InForce().head && std::exchange(m_lacksLength, false)) {
        status.Note(BlockNote::kHeadLength);
    }
}
