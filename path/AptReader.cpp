#include "path/AptReader.h"

#include "path/vectorParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>
#include <utility>

namespace {

constexpr double kInch = 25.4;
constexpr double kMetresPerFoot = 0.3048;
constexpr double kFullTurn = 2.0 * std::numbers::pi;
constexpr double kLastDigit = 1e-5;     // of a position
constexpr double kSameDirection = 1e-3; // sine of the angle between two that five decimals tell

struct RateUnit {
    std::string_view name;
    double factor; // to mm, or to rev and m
    bool flag;     // per turn; cutting speed
};
constexpr RateUnit kFeedUnits[] = {
    {"MMPM", 1.0, false}, {"MMPR", 1.0, true}, {"IPM", kInch, false}, {"IPR", kInch, true}};
constexpr RateUnit kSpeedUnits[] = {
    {"RPM", 1.0, false}, {"SMM", 1.0, true}, {"SFM", kMetresPerFoot, true}};

template<class Rows>
const RateUnit* findUnit(const Rows& rows, std::string_view name) noexcept {
    const auto* const row = std::ranges::find(rows, name, &RateUnit::name);
    return row == std::end(rows) ? nullptr : row;
}

std::string_view withoutBlanks(std::string_view text) noexcept {
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    return text;
}

// What stands in front of the first comma; `text` keeps what stands behind it.
std::string_view cutField(std::string_view& text) noexcept {
    const std::size_t comma = text.find(',');
    const std::string_view field = withoutBlanks(text.substr(0, comma));
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
    return field;
}

bool cutText(std::string_view& text, std::string_view start) noexcept {
    if (!text.starts_with(start)) {
        return false;
    }
    text.remove_prefix(start.size());
    return true;
}

NumberFault readOne(std::string_view text, double& value) noexcept {
    std::size_t count = 0;
    const NumberFault fault = readNumbers(text, {&value, 1}, count);
    return fault == NumberFault::kNone && !text.empty() ? NumberFault::kFollowed : fault;
}

gmVector3 vectorAt(std::span<const double> values, std::size_t first, double unit) noexcept {
    return gmVector3(values[first], values[first + 1], values[first + 2]) * unit;
}

// The axis that a direction is, but for its digits.
gmVector3 snapped(const gmVector3& direction) noexcept {
    for (int axis = 0; axis < 3; ++axis) {
        gmVector3 unit;
        unit[axis] = direction[axis] < 0.0 ? -1.0 : 1.0;
        if ((direction - unit).length() < kSameDirection) {
            return unit;
        }
    }
    return direction;
}

} // namespace

const AptReader::Row AptReader::kRows[] = {
    {"GOTO", &AptReader::readGoto},
    {"RAPID", &AptReader::readRapid},
    {"FEDRAT", &AptReader::readFeed},
    {"AUTOPS", &AptReader::pass},
    {"INDIRV", &AptReader::readDirection},
    {"TLON", &AptReader::readArc},
    {"PPRINT", &AptReader::pass},
    {"SPINDL", &AptReader::readSpindle},
    {"COOLNT", &AptReader::readCoolant},
    {"LOADTL", &AptReader::readTool},
    {"DELAY", &AptReader::readDelay},
    {"CUTCOM", &AptReader::readCompensation},
    {"MODE", &AptReader::pass},
    {"STOP", &AptReader::readEvent<EventKind::kStop>},
    {"OPSTOP", &AptReader::readEvent<EventKind::kOptionalStop>},
    {"TLAXIS", &AptReader::readToolAxis},
    {"MULTAX", &AptReader::readMultiAxis},
    {"UNITS", &AptReader::readUnits},
    {"GOHOME", &AptReader::readHome},
    {"REWIND", &AptReader::pass},
    {"END", &AptReader::readEvent<EventKind::kEnd>},
    {"PARTNO", &AptReader::pass},
};

bool AptReader::Read(std::FILE* file, ToolPath& path) {
    *this = AptReader();
    path = ToolPath();
    m_path = &path;
    StatementSource source(file);
    for (std::string_view text; source.Next(text);) {
        m_statement = source.Line();
        if (!readStatement(text)) {
            return false;
        }
    }
    return end(source);
}

bool AptReader::end(const StatementSource& source) {
    m_statement = source.Line();
    m_path->lines = source.Line();
    m_path->endsWithinLine = !source.HasLineEnd();
    if (!source.Failure().empty()) {
        return fail(source.Failure());
    }
    if (m_isRapid || m_direction) {
        return fail("the file ends in front of the movement that its last statement announces");
    }
    return true;
}

bool AptReader::readStatement(std::string_view text) {
    const std::size_t length = std::min(text.find_first_of("/, "), text.size());
    const Statement statement{text.substr(0, length), withoutBlanks(text.substr(length))};
    const auto* const row = std::ranges::find(kRows, statement.word, &Row::word);
    return row == std::end(kRows) ? takeUnknown(statement) : (this->*row->read)(statement);
}

// Movements

bool AptReader::readGoto(const Statement& statement) {
    std::string_view rest = statement.rest;
    std::array<double, 6> values{};
    std::size_t count = 0;
    if (!cutText(rest, "/")) {
        return fail("GOTO has no position");
    }
    if (const NumberFault fault = readNumbers(rest, values, count); fault != NumberFault::kNone) {
        return fail(std::string("GOTO: ") + textOf(fault));
    }
    if (!rest.empty() || (count != 3 && count != 6)) {
        return fail("GOTO takes three numbers, or six with the tool axis");
    }
    if (count == 6) {
        m_path->isMultiAxis = true;
        if (!setAxis(vectorAt(values, 3, 1.0))) {
            return false;
        }
    }
    m_direction.reset();
    addMovement(m_isRapid ? MovementKind::kRapid : MovementKind::kFeed,
                vectorAt(values, 0, m_unit));
    m_isRapid = false;
    return true;
}

bool AptReader::readRapid(const Statement& /*statement*/) {
    m_isRapid = true;
    return true;
}

bool AptReader::readDirection(const Statement& statement) {
    std::string_view rest = statement.rest;
    std::array<double, 3> values{};
    std::size_t count = 0;
    if (!cutText(rest, "/") || readNumbers(rest, values, count) != NumberFault::kNone ||
        count != 3) {
        return fail("INDIRV takes three numbers");
    }
    m_direction = vectorAt(values, 0, 1.0);
    return true;
}

bool AptReader::readArc(const Statement& statement) {
    std::string_view rest = statement.rest;
    if (!cutText(rest, ",GOFWD/(CIRCLE/")) {
        return takeUnknown(statement);
    }
    std::array<double, 4> circle{};
    std::array<double, 6> line{};
    std::size_t circleCount = 0;
    std::size_t lineCount = 0;
    NumberFault fault = readNumbers(rest, circle, circleCount);
    if (fault == NumberFault::kNone && cutText(rest, "),ON,(LINE/")) {
        fault = readNumbers(rest, line, lineCount);
    }
    if (fault != NumberFault::kNone) {
        return fail(std::string("TLON: ") + textOf(fault));
    }
    if (circleCount != 4 || lineCount != 6 || rest != ")") {
        return fail("TLON is not in the form (CIRCLE/x,y,z,r),ON,(LINE/x,y,z,x,y,z)");
    }
    if (!std::equal(circle.begin(), circle.begin() + 3, line.begin())) {
        return fail("TLON: the line that ends the arc does not begin at its centre");
    }
    ToolArc arc;
    arc.centre = vectorAt(circle, 0, m_unit);
    arc.radius = circle[3] * m_unit;
    return addArc(arc, vectorAt(line, 3, m_unit));
}

bool AptReader::addArc(ToolArc& arc, const gmVector3& end) {
    if (!m_direction || m_direction->length() < 0.5) {
        return fail("an arc without its direction, INDIRV");
    }
    if (!m_isPlaceKnown && !m_path->movements.empty()) {
        return fail("an arc from a place that nobody tells");
    }
    const gmVector3 start = m_path->movements.empty() ? NullVector3 : m_path->movements.back().end;
    const gmVector3 arm = start - arc.centre;
    const gmVector3 direction = *m_direction * (1.0 / m_direction->length());
    const double radius = arm.length();
    if (radius < grain()) {
        return fail("an arc that starts at its centre");
    }
    if (std::fabs(dotProduct(arm, direction)) > kSameDirection * radius + 4.0 * grain()) {
        return fail("the direction of an arc is not along its circle");
    }
    if (std::fabs((end - arc.centre).length() - arc.radius) > 4.0 * grain()) {
        return fail("the radius of an arc is not that of its end");
    }
    arc.normal = normalOf(arm, direction);
    if (across(arm, arc.normal).length() < grain()) {
        return fail("an arc about a point above its start");
    }
    if (across(end - arc.centre, arc.normal).length() < grain()) {
        return fail("an arc that ends at its centre");
    }
    arc.angle = angleOf(arc, start, end);
    m_path->arcs.push_back(arc);
    m_direction.reset();
    m_isRapid = false;
    addMovement(MovementKind::kArc, end);
    return true;
}

// An arc stands in the plane across the tool axis wherever its direction does. On a lathe nobody
// tells that axis, and the plane is that of the start and the direction.
gmVector3 AptReader::normalOf(const gmVector3& arm, const gmVector3& direction) const {
    const gmVector3 turn = cross(arm, direction);
    const gmVector3& axis = m_path->axes.back();
    if (m_path->hasToolAxis && std::fabs(dotProduct(direction, axis)) < kSameDirection) {
        return dotProduct(turn, axis) < 0.0 ? -axis : axis;
    }
    return snapped(turn * (1.0 / turn.length()));
}

// The tool drives in the direction up to the end point, although the line through it meets the
// circle before. Ends that are the same make a full turn; those that only their last digit tells
// apart are as good as one point, on whichever side of each other.
double AptReader::angleOf(const ToolArc& arc, const gmVector3& start, const gmVector3& end) const {
    const gmVector3 from = across(start - arc.centre, arc.normal);
    const gmVector3 to = across(end - arc.centre, arc.normal);
    const double angle = std::atan2(dotProduct(cross(from, to), arc.normal), dotProduct(from, to));
    if (angle > 0.0) {
        return angle;
    }
    if (angle < 0.0 && (end - start).length() < 1.5 * kLastDigit * m_unit) {
        return -angle;
    }
    return angle + kFullTurn;
}

void AptReader::addMovement(MovementKind kind, const gmVector3& end) {
    keepState();
    ToolMovement& movement = m_path->movements.emplace_back();
    movement.end = end;
    movement.line = m_statement;
    movement.state = static_cast<std::uint32_t>(m_path->states.size() - 1);
    movement.axis = static_cast<std::uint32_t>(m_path->axes.size() - 1);
    movement.arc = static_cast<std::uint32_t>(m_path->arcs.size() - (kind == MovementKind::kArc));
    movement.kind = kind;
    movement.startsAnew = !m_isPlaceKnown && kind != MovementKind::kArc;
    m_isPlaceKnown = true;
}

void AptReader::keepState() {
    if (m_state != m_path->states.back()) {
        m_path->states.push_back(m_state);
    }
}

// The tool axis

bool AptReader::readToolAxis(const Statement& statement) {
    std::string_view rest = statement.rest;
    std::array<double, 3> values{};
    std::size_t count = 0;
    if (!cutText(rest, "/") || readNumbers(rest, values, count) != NumberFault::kNone ||
        count != 3) {
        return fail("TLAXIS takes three numbers");
    }
    return setAxis(vectorAt(values, 0, 1.0));
}

bool AptReader::readMultiAxis(const Statement& statement) {
    if (statement.rest == "/ON" || statement.rest.empty()) {
        m_path->isMultiAxis = true;
        return true;
    }
    return statement.rest == "/OFF" || takeUnknown(statement);
}

bool AptReader::setAxis(const gmVector3& axis) {
    const double length = axis.length();
    if (length < kLastDigit) {
        return fail("a tool axis without a direction");
    }
    m_path->hasToolAxis = true;
    const gmVector3 unit = axis * (1.0 / length);
    if (!(unit == m_path->axes.back())) {
        m_path->axes.push_back(unit);
    }
    return true;
}

// Technology

bool AptReader::readFeed(const Statement& statement) {
    std::string_view rest = statement.rest;
    double feed = 0.0;
    (void)cutText(rest, "/");
    if (const NumberFault fault = readOne(cutField(rest), feed); fault != NumberFault::kNone) {
        return takeBadNumber(statement, fault);
    }
    const RateUnit* const unit = findUnit(kFeedUnits, withoutBlanks(rest));
    if (unit == nullptr) {
        return takeUnknown(statement);
    }
    m_state.feed = feed * unit->factor;
    m_state.isFeedPerTurn = unit->flag;
    return true;
}

bool AptReader::readSpindle(const Statement& statement) {
    std::string_view rest = statement.rest;
    if (rest == "/OFF") {
        m_state.spindle = SpindleState::kOff;
        return true;
    }
    const bool isLimit = cutText(rest, "/MAXRPM,");
    double speed = 0.0;
    (void)cutText(rest, "/");
    if (const NumberFault fault = readOne(cutField(rest), speed); fault != NumberFault::kNone) {
        return takeBadNumber(statement, fault);
    }
    if (isLimit) {
        m_state.speedLimit = speed;
        return true;
    }
    const RateUnit* const unit = findUnit(kSpeedUnits, cutField(rest));
    const std::string_view way = withoutBlanks(rest);
    if (unit == nullptr || (way != "CLW" && way != "CCLW")) {
        return takeUnknown(statement);
    }
    m_state.speed = speed * unit->factor;
    m_state.isCuttingSpeed = unit->flag;
    m_state.spindle = way == "CLW" ? SpindleState::kClockwise : SpindleState::kCounterclockwise;
    return true;
}

bool AptReader::readCoolant(const Statement& statement) {
    if (statement.rest == "/ON" || statement.rest == "/FLOOD") {
        m_state.coolant = CoolantState::kOn;
    } else if (statement.rest == "/MIST") {
        m_state.coolant = CoolantState::kMist;
    } else if (statement.rest == "/OFF") {
        m_state.coolant = CoolantState::kOff;
    } else {
        return takeUnknown(statement);
    }
    return true;
}

bool AptReader::readTool(const Statement& statement) {
    constexpr double kLargestTool = 2147483647.0;
    std::string_view rest = statement.rest;
    double tool = 0.0;
    (void)cutText(rest, "/");
    if (const NumberFault fault = readOne(cutField(rest), tool); fault != NumberFault::kNone) {
        return takeBadNumber(statement, fault);
    }
    if (std::fabs(tool) > kLargestTool || tool != std::trunc(tool)) {
        return fail("LOADTL takes the number of a tool");
    }
    m_state.tool = static_cast<int>(tool);
    return addEvent(EventKind::kTool, tool);
}

bool AptReader::readDelay(const Statement& statement) {
    std::string_view rest = statement.rest;
    double value = 0.0;
    (void)cutText(rest, "/");
    if (const NumberFault fault = readOne(cutField(rest), value); fault != NumberFault::kNone) {
        return takeBadNumber(statement, fault);
    }
    rest = withoutBlanks(rest);
    if (value < 0.0 || (!rest.empty() && rest != "REV")) {
        return takeUnknown(statement);
    }
    return addEvent(rest.empty() ? EventKind::kDwell : EventKind::kDwellInTurns, value);
}

bool AptReader::readCompensation(const Statement& statement) {
    std::string_view rest = statement.rest;
    const std::string_view side = cutField(rest);
    double number = 0.0;
    m_state.compensation.reset();
    if (side == "/OFF") {
        m_state.side = CompensationSide::kOff;
        return true;
    }
    if (side != "/LEFT" && side != "/RIGHT") {
        return takeUnknown(statement);
    }
    m_state.side = side == "/LEFT" ? CompensationSide::kLeft : CompensationSide::kRight;
    if (!rest.empty() && readOne(rest, number) == NumberFault::kNone && std::fabs(number) < 1e9) {
        m_state.compensation = static_cast<int>(number);
    }
    return true;
}

bool AptReader::readUnits(const Statement& statement) {
    const bool isInch = statement.rest == "/INCHES";
    if (!isInch && statement.rest != "/MM") {
        return fail("UNITS takes MM or INCHES");
    }
    if (isInch != m_path->isInch && !m_path->movements.empty()) {
        return fail("the unit changes behind the first movement");
    }
    m_path->isInch = isInch;
    m_unit = isInch ? kInch : 1.0;
    return true;
}

template<EventKind Kind>
bool AptReader::readEvent(const Statement& /*statement*/) {
    return addEvent(Kind, 0.0);
}

bool AptReader::readHome(const Statement& /*statement*/) {
    m_isPlaceKnown = false;
    return addEvent(EventKind::kHome, 0.0);
}

bool AptReader::pass(const Statement& /*statement*/) { return true; }

bool AptReader::addEvent(EventKind kind, double value) {
    keepState();
    m_path->events.push_back({kind, value, m_statement,
                              static_cast<std::uint32_t>(m_path->movements.size()),
                              static_cast<std::uint32_t>(m_path->states.size() - 1)});
    return true;
}

bool AptReader::takeUnknown(const Statement& statement) {
    m_path->unknown.Add(statement.word, m_statement);
    return true;
}

// Another form of the statement is one that is not known, a number that is none an error.
bool AptReader::takeBadNumber(const Statement& statement, NumberFault fault) {
    if (fault == NumberFault::kNotANumber || fault == NumberFault::kTooLarge) {
        return fail(std::string(statement.word) + ": " + textOf(fault));
    }
    return takeUnknown(statement);
}

// What the digits of a position leave open, in mm.
double AptReader::grain() const noexcept { return kLastDigit * m_unit; }

bool AptReader::fail(std::string reason) {
    m_line = m_statement;
    m_reason = std::move(reason);
    return false;
}
