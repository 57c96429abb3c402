#include "commands/Control.h"

#include "commands/MachineStatus.h"
#include "commands/Movement.h"
#include "commands/withoutNoise.h"
#include "driver/returnCodes.h"

#include <cmath>
#include <utility>

namespace {

constexpr double kMostParts = 10'000'000.0; // of one arc; more are a mistake

} // namespace

void Control::BeginBlock() noexcept {
    actions.Clear();
    m_axisWordsAreTaken = false;
    m_hasMovementCommand = false;
}

int Control::Perform(Command& command) {
    if (actions.HasRivalOf(command)) {
        return Refuse(kBlockRefused, "two codes of one modal group stand in one block");
    }
    actions.Add(command);
    return 0;
}

AxisValues Control::TakeAxisWords(char* line) {
    m_axisWordsAreTaken = true;
    AxisValues values;
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        const auto& [incremental, absolute] = words.axes[axis];
        for (Parameter* const word : {incremental, absolute}) {
            if (word == nullptr || word->scanNC(line, &m_status) == 0) {
                continue;
            }
            word->SetNCLineStatus(FALSE);
            values[axis] = {.value = word->GetValue(),
                            .isIncremental = word->GetIncStatus() == TRUE,
                            .isAbsolute = word->IsExplicit() && word->GetIncStatus() != TRUE};
        }
    }
    return values;
}

int Control::NoteMovementCommand() {
    return computesArcs && std::exchange(m_hasMovementCommand, true)
               ? Refuse(kBlockRefused, "two movement codes stand in one block")
               : 0;
}

gmVector3 Control::ToLengths(const gmVector3& point, const AxisMapping& mapping) const {
    return {point[0] * mapping.LengthFactor(AxisMapping::kX),
            point[1] * mapping.LengthFactor(AxisMapping::kY),
            point[2] * mapping.LengthFactor(AxisMapping::kZ)};
}

gmVector3 Control::FromLengths(const gmVector3& point, const AxisMapping& mapping) const {
    return {point[0] / mapping.LengthFactor(AxisMapping::kX),
            point[1] / mapping.LengthFactor(AxisMapping::kY),
            point[2] / mapping.LengthFactor(AxisMapping::kZ)};
}

int Control::CheckFeed(const Movement& movement) {
    return forgetsFeed && movement.rapid != TRUE && movement.needsFeed &&
                   m_status.GetFeedRateSpeed() == 0.0
               ? Refuse(kBlockRefused, "a feed movement has no feed")
               : 0;
}

int Control::Pass(Movement& movement, const AxisMapping& mapping) {
    m_status.InitEndPosition(movement.end[0], movement.end[1], movement.end[2]);
    toOutput(movement.start, mapping);
    toOutput(movement.end, mapping);
    if (movement.arc) {
        toOutput(movement.arc->centre, mapping);
    }
    if (movement.sweep) {
        Sweep& sweep = *movement.sweep;
        sweep.centre = FromLengths(sweep.centre, mapping);
        toOutput(sweep.centre, mapping);
        for (gmVector3* const direction : {&sweep.from, &sweep.across, &sweep.rise}) {
            directionToOutput(*direction, mapping);
        }
        if (!isRound(sweep)) {
            return Refuse(kArcRefused, "the factors of the axes make an ellipse of the arc");
        }
        if (!(path.PartsOf(sweep, units.FromMillimetres()) <= kMostParts)) {
            return Refuse(kArcRefused, "the arc is too long for its tolerance");
        }
    }
    WriteUnits();
    m_status.InitBasicPosition(movement.end[0], movement.end[1], movement.end[2]);
    m_status.KeepMovement(&movement); // before an arc that has no direction ends the process
    path.Write(movement, units.FromMillimetres());
    return 0;
}

void Control::toOutput(gmVector3& point, const AxisMapping& mapping) const {
    point = ToLengths(point, mapping);
    if (coordinates.IsChanged()) {
        point = coordinates.ToStart(point);
    }
    point *= units.ToOutput();
    mapping.Place(point);
    point = withoutNoise(point);
}

void Control::directionToOutput(gmVector3& direction, const AxisMapping& mapping) const {
    if (coordinates.IsChanged()) {
        direction = coordinates.DirectionToStart(direction);
    }
    direction *= units.ToOutput();
    mapping.Place(direction);
}

bool Control::isRound(const Sweep& sweep) {
    constexpr double kSame = 1e-9; // of the radius
    const auto& [a, b] = std::pair(sweep.from, sweep.across);
    const double radius = a.length();
    const double product = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    return std::abs(radius - b.length()) <= kSame * radius &&
           std::abs(product) <= kSame * radius * radius;
}

void Control::SwitchUnits(bool isInch) {
    const double factor = units.Switch(isInch);
    if (factor != 1.0) {
        const gmVector3 end = m_status.GetEndPosition() * factor;
        m_status.InitEndPosition(end[0], end[1], end[2]);
        m_status.InitFeedRateSpeed(m_status.GetFeedRateSpeed() * factor);
        coordinates.Rescale(factor);
    }
    WriteUnits();
}

void Control::WriteUnits() {
    if (tellsUnits && isRunning && units.SettleOutput()) {
        writer->WriteUnits(units.IsOutputInch());
    }
}

int Control::Refuse(int code, std::string reason) {
    m_reason = std::move(reason);
    return code;
}
