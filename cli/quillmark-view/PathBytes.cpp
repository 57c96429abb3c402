#include "cli/quillmark-view/PathBytes.h"

#include <cmath>
#include <numbers>

namespace {

constexpr std::int64_t kForm = 2; // of these bytes; the reader knows one
constexpr double kInch = 25.4;
constexpr double kDigits = 1e5;     // of a position
constexpr double kRateDigits = 1e6; // of feeds, speeds and seconds
constexpr double kAxisDigits = 1e7; // of a direction

// What the first number of a movement tells, beside its kind in the lowest two bits.
enum MovementBits : std::uint8_t { kAnew = 4, kLong = 8, kState = 16, kAxis = 32 };

// Codes of normals; below them are the axes, two codes each, the positive direction first.
enum NormalCode : std::uint8_t { kSameNormal = 6, kOppositeNormal = 7, kOtherNormal = 8 };

template<typename Enum>
std::int64_t bitsOf(Enum value, int shift) noexcept {
    return std::int64_t{static_cast<std::uint8_t>(value)} << shift;
}

std::int64_t digitsOf(double value, double unit) noexcept {
    return std::llround(value / unit * kDigits);
}

// In the last digits that a source has, the largest power of ten of which all positions are
// multiples.
std::int64_t grainOf(const ToolPath& path, double unit) noexcept {
    auto grain = static_cast<std::int64_t>(kDigits);
    const auto take = [&grain, unit](const gmVector3& point) {
        for (int i = 0; i < 3; ++i) {
            while (digitsOf(point[i], unit) % grain != 0) {
                grain /= 10;
            }
        }
    };
    for (const ToolMovement& movement : path.movements) {
        take(movement.end);
    }
    for (const ToolArc& arc : path.arcs) {
        take(arc.centre);
    }
    return grain;
}

std::int64_t flagsOf(const ToolState& state) noexcept {
    return bitsOf(state.isFeedPerTurn, 0) | bitsOf(state.isCuttingSpeed, 1) |
           bitsOf(state.spindle, 2) | bitsOf(state.coolant, 4) | bitsOf(state.side, 6) |
           bitsOf(state.tool.has_value(), 8) | bitsOf(state.compensation.has_value(), 9);
}

} // namespace

PathBytes::PathBytes(const ToolPath& path)
    : m_path(path), m_unit(path.isInch ? kInch : 1.0), m_grain(grainOf(path, m_unit)) {
    addHead();
    addStates();
    addEvents();
    m_line = 0;
    m_block = 0;
    addMovements();
}

void PathBytes::addHead() {
    number(kForm);
    number(bitsOf(m_path.isInch, 0) | bitsOf(m_path.isMultiAxis, 1) |
           bitsOf(!m_path.blocks.IsEmpty(), 2));
    number(m_grain);
    for (const std::size_t count : {m_path.movements.size(), m_path.arcs.size(),
                                    m_path.states.size(), m_path.events.size()}) {
        number(static_cast<std::int64_t>(count));
    }
}

void PathBytes::addStates() {
    std::int64_t feed = 0;
    std::int64_t speed = 0;
    for (const ToolState& state : m_path.states) {
        number(flagsOf(state));
        difference(std::llround(state.feed * kRateDigits), feed);
        difference(std::llround(state.speed * kRateDigits), speed);
        number(std::llround(state.speedLimit * kRateDigits));
        if (state.tool) {
            number(*state.tool);
        }
        if (state.compensation) {
            number(*state.compensation);
        }
    }
}

void PathBytes::addEvents() {
    std::int64_t movement = 0;
    for (const PathEvent& event : m_path.events) {
        number(static_cast<std::int64_t>(event.kind));
        number(std::llround(event.value * kRateDigits));
        difference(event.movement, movement);
        difference(event.line, m_line);
        addBlock(event.line);
    }
}

void PathBytes::addMovements() {
    for (std::size_t i = 0; i < m_path.movements.size(); ++i) {
        addMovement(i);
    }
}

void PathBytes::addMovement(std::size_t index) {
    const ToolMovement& movement = m_path.movements[index];
    const bool hasAxis = movement.axis != m_axisIndex;
    const bool isLong = movement.IsArc() && m_path.arcs[movement.arc].angle > std::numbers::pi;
    number(static_cast<std::int64_t>(movement.kind) | (movement.startsAnew ? kAnew : 0) |
           (isLong ? kLong : 0) | (movement.state != m_state ? kState : 0) | (hasAxis ? kAxis : 0));
    const Place start = m_end;
    m_end = placeOf(movement.end);
    addPlace(m_end, start);
    difference(movement.line, m_line);
    addBlock(movement.line);
    if (movement.state != m_state) {
        number(std::int64_t{movement.state} - m_state);
        m_state = movement.state;
    }
    if (hasAxis) {
        m_axisIndex = movement.axis;
        Place axis;
        for (int i = 0; i < 3; ++i) {
            axis.part[i] = std::llround(m_path.axes[m_axisIndex][i] * kAxisDigits);
        }
        addPlace(axis, m_axis);
        m_axis = axis;
    }
    if (movement.IsArc()) {
        addArc(index, start, m_end);
    }
}

// The radius is next to the distance of the end from the centre, as their digits tell them.
void PathBytes::addArc(std::size_t index, const Place& start, const Place& end) {
    const ToolArc& arc = m_path.arcs[m_path.movements[index].arc];
    const Place centre = placeOf(arc.centre);
    addPlace(centre, start);
    gmVector3 arm;
    for (int i = 0; i < 3; ++i) {
        arm[i] = static_cast<double>(end.part[i] - centre.part[i]);
    }
    number(digitsOf(arc.radius, m_unit) -
           std::llround(arm.length() * static_cast<double>(m_grain)));
    addNormal(arc.normal);
}

void PathBytes::addNormal(const gmVector3& normal) {
    for (int axis = 0; axis < 3; ++axis) {
        if (std::fabs(normal[axis]) == 1.0) {
            number(2 * axis + (normal[axis] < 0.0 ? 1 : 0));
            return;
        }
    }
    const bool isSame = normal == m_normal;
    const bool isOpposite = !isSame && normal == -m_normal;
    m_normal = normal;
    if (isSame || isOpposite) {
        number(isSame ? kSameNormal : kOppositeNormal);
        return;
    }
    number(kOtherNormal);
    for (int i = 0; i < 3; ++i) {
        number(std::llround(normal[i] * kAxisDigits));
    }
}

// Counted from 1, since 0 is none.
void PathBytes::addBlock(std::uint32_t line) {
    if (!m_path.blocks.IsEmpty()) {
        const std::uint32_t block = m_path.blocks.At(line);
        difference(block == BlockTable::kNone ? 0 : std::int64_t{block} + 1, m_block);
    }
}

PathBytes::Place PathBytes::placeOf(const gmVector3& point) const noexcept {
    Place place;
    for (int i = 0; i < 3; ++i) {
        place.part[i] = digitsOf(point[i], m_unit) / m_grain;
    }
    return place;
}

void PathBytes::addPlace(const Place& place, const Place& before) {
    for (int i = 0; i < 3; ++i) {
        number(place.part[i] - before.part[i]);
    }
}

void PathBytes::number(std::int64_t value) {
    constexpr std::uint64_t kGroup = 128;
    std::uint64_t bits =
        (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value < 0 ? -1 : 0);
    for (; bits >= kGroup; bits /= kGroup) {
        m_bytes += static_cast<char>(bits % kGroup + kGroup);
    }
    m_bytes += static_cast<char>(bits);
}

void PathBytes::difference(std::int64_t value, std::int64_t& before) {
    number(value - before);
    before = value;
}
