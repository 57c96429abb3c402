#include "commands/Control.h"

#include "commands/Command.h"
#include "commands/CycleCall.h"
#include "commands/InverseTime.h"
#include "commands/MachineStatus.h"
#include "commands/Movement.h"
#include "commands/repeatedAddress.h"
#include "commands/withoutNoise.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace {

constexpr double kMostParts = 10'000'000.0; // of one arc; more are a mistake

// Those of which a block may hold one: where further families forgive more, only those by which a
// word too many could move the tool.
constexpr std::string_view kAddresses = "ABCDEFHIJKLNOPQRSTUVWXYZ";
constexpr std::string_view kAxisAddresses = "ABCIJKUVWXYZ";

bool hasInfinity(const gmVector3& point) {
    return std::isinf(point[0]) || std::isinf(point[1]) || std::isinf(point[2]);
}

} // namespace

bool Control::IsCycleActive() const {
    return cycles.Has(m_status.GetMovementCom()->GetActiveCommand());
}

int Control::FinishBlock() {
    const bool moves = m_status.GetMovement() != nullptr || actions.Has(ActionKind::kMovement);
    if (Command* const call = calls.Due(moves, *this)) {
        actions.Add(*call);
    }
    return actions.Run();
}

void Control::BeginBlock() noexcept {
    actions.Clear();
    beforeMovement.Clear();
    calls.BeginBlock();
    m_axisWordsAreTaken = false;
    m_axisWordsAreTakenTwice = false;
    movesInMachine = false;
    polar.ForgetWords();
    if (rotary != nullptr) {
        rotary->ForgetWords();
    }
    inverseFeed.reset();
    m_hasMovementCommand = false;
    hasDwell = false;
    pitchIsOfBlock = false;
    speedWaits = false;
}

int Control::Perform(Command& command) {
    if (actions.HasRivalOf(command)) {
        return Refuse(kBlockRefused, "two codes of one modal group stand in one block");
    }
    actions.Add(command);
    return 0;
}

// A movement code in front of the command may have found the words already.
AxisValues Control::TakeAxisWords(char* line) {
    m_axisWordsAreTakenTwice |= std::exchange(m_axisWordsAreTaken, true);
    for (const auto& [incremental, absolute] : words.axes) {
        for (Parameter* const word : {incremental, absolute}) {
            if (word != nullptr && word->GetNCLineStatus() != TRUE) {
                (void)word->scanNC(line, &m_status);
            }
        }
    }
    if (rotary != nullptr) {
        (void)rotary->TakeWords(line, m_status);
    }
    return takeFound(words.axes);
}

RotaryValues Control::TakeRotaryValues() const noexcept {
    return rotary == nullptr ? RotaryValues() : rotary->TakeValues();
}

double Control::RotaryOffset(std::size_t axis) const {
    return rotary->OffsetOf(axis, coordinates.zeros.Current());
}

int Control::CheckRotary(const RotaryValues& values, bool areUsed) {
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        if (values.at(axis) && axis >= rotary->chain.Count()) {
            return Refuse(kRotaryRefused, "the machine has no such rotary axis");
        }
        if (values.at(axis) && !areUsed) {
            return Refuse(kWordNotConverted, "a code has no use for the rotary axis of its block");
        }
    }
    return 0;
}

bool Control::NeedsModes(const Command& command) const noexcept {
    const ActionKind kind = command.GetActionKind();
    return !actions.IsInUse() && (kind == ActionKind::kShift || kind == ActionKind::kZeroSystem);
}

int Control::CheckAddresses(const char* block) {
    if (!actions.IsInUse()) {
        return 0;
    }
    const char letter = repeatedAddress(block, isStrict ? kAddresses : kAxisAddresses);
    return letter == '\0'
               ? 0
               : Refuse(kBlockRefused, std::string("the address ") + letter + " stands twice");
}

int Control::CheckUncompensated() {
    return isStrict && isCompensated
               ? Refuse(kBlockRefused, "radius compensation is on where it cannot be")
               : 0;
}

int Control::CheckAxisWords() {
    const bool areUsedTwice = (m_axisWordsAreTakenTwice && actions.IsInUse()) ||
                              (m_axisWordsAreTaken && m_hasMovementCommand && isStrict);
    return areUsedTwice ? Refuse(kBlockRefused, "two codes of the block use the words of its axes")
                        : 0;
}

int Control::NoteMovementCommand() {
    if (std::exchange(m_hasMovementCommand, true) && computesArcs) {
        return Refuse(kBlockRefused, "two movement codes stand in one block");
    }
    return CheckAxisWords();
}

double Control::lengthFactor(const AxisMapping& mapping, AxisMapping::Axis axis) const noexcept {
    const double factor = mapping.LengthFactor(axis);
    return axis == AxisMapping::kX ? diameter.LengthFactor(factor) : factor;
}

gmVector3 Control::ToLengths(const gmVector3& point, const AxisMapping& mapping) const {
    return {point[0] * lengthFactor(mapping, AxisMapping::kX),
            point[1] * lengthFactor(mapping, AxisMapping::kY),
            point[2] * lengthFactor(mapping, AxisMapping::kZ)};
}

gmVector3 Control::FromLengths(const gmVector3& point, const AxisMapping& mapping) const {
    return {point[0] / lengthFactor(mapping, AxisMapping::kX),
            point[1] / lengthFactor(mapping, AxisMapping::kY),
            point[2] / lengthFactor(mapping, AxisMapping::kZ)};
}

gmVector3 Control::Position() const { return ToLengths(m_status.GetEndPosition()); }

void Control::SetPosition(const gmVector3& point) {
    const gmVector3 end = FromLengths(point);
    m_status.InitEndPosition(end[0], end[1], end[2]);
}

gmVector3 Control::LengthsOf(const AxisValues& values) const {
    gmVector3 point;
    for (int axis = 0; axis < 3; ++axis) {
        const auto& value = values[static_cast<std::size_t>(axis)];
        point[axis] = value ? value->value : 0.0;
    }
    return ToLengths(point);
}

bool Control::IsIncrementalMode() const {
    Command* const type = m_status.GetMovTypeCom()->GetActiveCommand();
    return type != nullptr && type->GetStatus() == 0;
}

int Control::ResolvePoint(AxisValues values, gmVector3& point) {
    if (movesInMachine) {
        return resolveInMachine(values, point);
    }
    if (polar.IsInUse()) {
        if (polar.HasWords() && IsIncrementalMode()) {
            return Refuse(kWordNotConverted, "a radius and an angle stand in a block with "
                                             "incremental dimensions");
        }
        point = FromLengths(polar.Resolve(values, plane, IsIncrementalMode(), ToLengths(point)));
    }
    for (int axis = 0; axis < 3; ++axis) {
        const auto& value = values[static_cast<std::size_t>(axis)];
        if (!value) {
            continue;
        }
        const bool isLength = axis == 0 && diameter.AreIncrementsLengths();
        const double step = isLength ? FromLengths({value->value, 0.0, 0.0})[0] : value->value;
        point[axis] = IsIncremental(*value) ? point[axis] + step : value->value;
    }
    return 0;
}

// A mill's tool is long in Z. On a lathe it reaches in X as well.
std::optional<double> Control::MachineZero(int axis) const {
    const std::optional<gmVector3> zero = coordinates.zeros.MachineZero();
    const bool hasLength = axis == 2 || (axis == 0 && isLathe);
    if (rotary != nullptr && rotary->HidesMachine()) {
        return std::nullopt;
    }
    return zero && !(hasToolLength && hasLength) ? std::optional((*zero)[axis]) : std::nullopt;
}

int Control::resolveInMachine(const AxisValues& values, gmVector3& point) {
    gmVector3 place = coordinates.ToStart(ToLengths(point));
    const gmVector3 given = LengthsOf(values);
    for (int axis = 0; axis < 3; ++axis) {
        const auto& value = values[static_cast<std::size_t>(axis)];
        if (!value) {
            continue;
        }
        if (IsIncremental(*value)) {
            return Refuse(kBlockRefused, "coordinates of the machine are not incremental");
        }
        const std::optional<double> zero = MachineZero(axis);
        place[axis] = zero ? given[axis] + *zero : AxisKnowledge::kUnknown;
        if (!zero) {
            m_status.Note(BlockNote::kUnknownPlace);
        }
    }
    if (rotary != nullptr && rotary->HidesMachine()) {
        place.assign(AxisKnowledge::kUnknown, AxisKnowledge::kUnknown, AxisKnowledge::kUnknown);
    }
    point = FromLengths(coordinates.FromStart(place));
    return 0;
}

int Control::CheckKnown(const gmVector3& point) {
    return AxisKnowledge::IsKnown(point)
               ? 0
               : Refuse(kAxisUnknown, "nobody knows where the tool is in " +
                                          AxisKnowledge::NameUnknown(point) +
                                          " at a place of the machine, or on the way to one");
}

int Control::CheckFeed(const Movement& movement) {
    if (movement.rapid == TRUE || !movement.needsFeed || m_status.GetFeedRateSpeed() != 0.0 ||
        IsInverseTime()) {
        return 0;
    }
    if (isStrict) {
        return Refuse(kBlockRefused, "a feed movement has no feed");
    }
    m_status.Note(BlockNote::kNoFeed);
    return 0;
}

bool Control::IsInverseTime() const {
    return !inverseTimeCodes.empty() &&
           std::ranges::find(inverseTimeCodes, m_status.GetFeedRateCom()->GetActiveCommand()) !=
               inverseTimeCodes.end();
}

int Control::WriteInverseFeed(const Movement& movement, double length) {
    if (movement.rapid == TRUE || !movement.needsFeed || !IsInverseTime()) {
        return 0;
    }
    if (!inverseFeed || !(*inverseFeed > 0.0)) {
        return Refuse(kRotaryRefused, "a movement under inverse time has no feed above 0");
    }
    if (length > 0.0) { // where the tip stands, no feed of it says anything
        const double feed = *inverseFeed * length;
        if (units.IsOutputInch()) {
            feedWriter->WriteFine(true, feed, true);
        } else {
            feedWriter->InitOutput(TRUE, feed);
        }
    }
    return 0;
}

bool Control::RunsAlongTool(int axis) const {
    if (rotary == nullptr || !rotary->IsInUse()) {
        return true;
    }
    constexpr double kSameDirection = 1e-6;
    gmVector3 direction;
    direction[axis] = 1.0;
    direction = rotary->Pose().Turn(coordinates.DirectionToStart(direction));
    const gmVector3 off = cross(direction, rotary->ToolAxis());
    return !(off.length() > kSameDirection * direction.length());
}

int Control::CheckParts(const Sweep& sweep) {
    const double parts = path.PartsOf(sweep, units.FromMillimetres());
    return parts <= kMostParts ? AddParts(parts - 1.0)
                               : Refuse(kArcRefused, "the arc is too long for its tolerance");
}

int Control::AddParts(double parts) {
    m_parts += std::max(0.0, parts);
    return m_parts <= mostParts
               ? 0
               : Refuse(kProgramEndless,
                        "there are too many points of curves, pecks and repeats in all");
}

int Control::Pass(Movement& movement, const AxisMapping& mapping) {
    const gmVector3 programmed = movement.end;
    Turning turning;
    if (rotary != nullptr) {
        if (const int code = rotary->Resolve(*this, turning); code != 0) {
            return code;
        }
    }
    m_status.InitEndPosition(programmed[0], programmed[1], programmed[2]);
    toOutput(movement.start, mapping);
    toOutput(movement.end, mapping);
    if (movement.arc) {
        toOutput(movement.arc->centre, mapping);
        if (turnArc(*movement.arc) != 0) {
            return Refuse(kArcRefused, "the coordinates do not keep the arc one in its plane");
        }
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
    }
    if (rotary != nullptr && rotary->IsInUse()) {
        return hasInfinity(movement.end)
                   ? Refuse(kBlockRefused, "a position is beyond all numbers")
                   : m_toolStage.Pass(*this, m_knowledge, movement, turning, programmed);
    }
    if (movement.sweep) {
        if (const int code = CheckParts(*movement.sweep); code != 0) {
            return code;
        }
    }
    if (movement.arc || movement.sweep) {
        if (const int code = CheckKnown(movement.start); code != 0) {
            return code;
        }
    }
    if (hasInfinity(movement.end)) {
        return Refuse(kBlockRefused, "a position is beyond all numbers");
    }
    if (!AxisKnowledge::IsKnown(movement.end)) {
        if (movement.rapid != TRUE) {
            return CheckKnown(AxisKnowledge::IsKnown(programmed) ? movement.end : programmed);
        }
        m_knowledge.Hold(movement);
        return 0;
    }
    m_knowledge.Release(movement);
    WriteUnits();
    m_status.InitBasicPosition(movement.end[0], movement.end[1], movement.end[2]);
    m_status.KeepMovement(&movement); // before an arc that has no direction ends the process
    if (!inverseTimeCodes.empty()) {
        const double length =
            movement.sweep ? movement.sweep->Length() : (movement.end - movement.start).length();
        if (const int code = WriteInverseFeed(movement, length); code != 0) {
            return code;
        }
    }
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

// An arc as described turns about the normal of its plane; coordinates may turn that round.
int Control::turnArc(Arc& arc) const {
    if (!coordinates.IsChanged()) {
        return 0;
    }
    const gmVector3 aside =
        std::abs(arc.normal[2]) > 0.5 ? gmVector3(1.0, 0.0, 0.0) : gmVector3(0.0, 0.0, 1.0);
    const gmVector3 from = cross(cross(arc.normal, aside), arc.normal);
    const Sweep turned = {.centre = {},
                          .from = coordinates.DirectionToStart(from),
                          .across = coordinates.DirectionToStart(cross(arc.normal, from)),
                          .rise = {}};
    constexpr double kSameDirection = 1e-9;
    const gmVector3 normal = cross(turned.from, turned.across);
    const gmVector3 off = cross(normal, arc.normal);
    if (!isRound(turned) || off.length() > kSameDirection * normal.length()) {
        return kArcRefused;
    }
    const double along =
        normal[0] * arc.normal[0] + normal[1] * arc.normal[1] + normal[2] * arc.normal[2];
    if (along < 0.0) {
        arc.clockwise = arc.clockwise == TRUE ? FALSE : TRUE;
    }
    return 0;
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
    const bool wasInch = units.IsInch();
    const double factor = units.Switch(isInch);
    if (factor != 1.0) {
        if (isCuttingSpeed) {
            m_status.InitSpindleSpeed(m_status.GetSpindleSpeed() *
                                      LengthUnits::CuttingSpeedFactor(wasInch, isInch));
        }
        if (pitch && !pitchIsOfBlock) {
            *pitch *= factor;
        }
        const gmVector3 end = m_status.GetEndPosition() * factor;
        m_status.InitEndPosition(end[0], end[1], end[2]);
        m_status.InitFeedRateSpeed(m_status.GetFeedRateSpeed() * factor);
        coordinates.Rescale(factor);
        polar.Rescale(factor);
        home *= factor;
    }
    WriteUnits();
}

void Control::WriteUnits() {
    if (tellsUnits && isRunning && units.SettleOutput()) {
        writer->WriteUnits(units.IsOutputInch());
    }
}

int Control::LimitSpeed(double limit) {
    if (!(limit > 0.0)) {
        return Refuse(kBlockRefused, "a limit of the speed is not above 0");
    }
    writer->WriteSpeedLimit(limit);
    return 0;
}

int Control::Refuse(int code, std::string reason) {
    m_reason = std::move(reason);
    return code;
}
