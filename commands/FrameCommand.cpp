#include "commands/FrameCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr double kThousandths = 1000.0;

gmVector3 unit(int axis) {
    gmVector3 direction;
    direction[axis] = 1.0;
    return direction;
}

// What was taken out of a text that `rest` is left of.
std::string_view cutText(std::string_view text, std::string_view rest) {
    const auto begin = std::ranges::mismatch(text, rest).in1 - text.begin();
    return text.substr(static_cast<std::size_t>(begin), text.size() - rest.size());
}

} // namespace

FrameCommand::~FrameCommand() = default;

void FrameCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_rotary = control().TakeRotaryValues();
    m_hasWords = std::ranges::any_of(m_values, [](const auto& v) { return v.has_value(); });
    m_angle.reset();
    m_factor.reset();
    if (m_kind == FrameKind::kRotate) {
        m_angle = control().words.frameAngle.Take(line, control().Status());
    }
    if (m_kind == FrameKind::kScale) {
        takeFactor(line);
    }
}

void FrameCommand::takeFactor(char* line) {
    const std::string before = line;
    m_factor = control().words.frameFactor.Take(line, control().Status());
    const char separator = *control().Status().GetDecimalSeparator();
    if (m_factor && control().hasThousandths &&
        cutText(before, line).find(separator) == std::string_view::npos) {
        *m_factor /= kThousandths;
    }
}

int FrameCommand::Act() {
    int code = control().CheckRotary(m_rotary, m_kind == FrameKind::kShift);
    if (code != 0) {
        return code;
    }
    if (control().rotary != nullptr) {
        shiftAngles(control().rotary->frameShift);
    }
    control().Recoordinate([&] { code = addParts(); });
    return code;
}

// As with lengths, a plain form replaces the whole frame.
void FrameCommand::shiftAngles(gmVector3& shift) const {
    if (!m_isAdding && !hasCentre()) {
        shift = gmVector3();
    }
    for (std::size_t axis = 0; axis < m_rotary.size(); ++axis) {
        if (const auto& word = m_rotary.at(axis)) {
            shift[static_cast<int>(axis)] += word->value.value;
        }
    }
}

int FrameCommand::addParts() {
    Frame& frame = control().coordinates.frame;
    if (!m_isAdding && hasCentre()) {
        const gmVector3 place = control().coordinates.ToStart(control().Position());
        frame.Remove(m_kind);
        control().coordinates.Settle();
        control().SetPosition(control().coordinates.FromStart(place));
    } else if (!m_isAdding) {
        frame.Clear();
    }
    switch (m_kind) {
    case FrameKind::kShift: {
        const gmVector3 way = control().LengthsOf(m_values);
        if (m_hasWords) {
            add(gmMatrix4::translate(way[0], way[1], way[2]),
                gmMatrix4::translate(-way[0], -way[1], -way[2]));
        }
        return 0;
    }
    case FrameKind::kRotate:
        return makeRotation();
    case FrameKind::kScale:
        return makeScaling();
    case FrameKind::kMirror:
        addMirrors();
        break;
    }
    return 0;
}

int FrameCommand::refuse(const char* reason) { return control().Refuse(kBlockRefused, reason); }

int FrameCommand::makeRotation() {
    const gmVector3 normal = unit(axesOf(control().plane).normal);
    const auto& aside = m_values[static_cast<std::size_t>(axesOf(control().plane).normal)];
    if (hasCentre() && aside) {
        return refuse("the centre of a rotation has a coordinate outside of the plane");
    }
    if (!hasCentre() && m_angle && m_hasWords) {
        return refuse("a rotation has an angle in the plane, and angles about axes");
    }
    if (hasCentre()) {
        if (!m_angle) {
            return refuse("a rotation has no angle");
        }
        addAbout(centre(), gmMatrix4::rotate(*m_angle, normal),
                 gmMatrix4::rotate(-*m_angle, normal));
        return 0;
    }
    if (m_angle) {
        add(gmMatrix4::rotate(*m_angle, normal), gmMatrix4::rotate(-*m_angle, normal));
    }
    // About Z, the new Y and the new X: the later one acts on a point first.
    for (const int axis : {2, 1, 0}) {
        if (const auto& angle = m_values[static_cast<std::size_t>(axis)]) {
            add(gmMatrix4::rotate(angle->value, unit(axis)),
                gmMatrix4::rotate(-angle->value, unit(axis)));
        }
    }
    return 0;
}

int FrameCommand::makeScaling() {
    gmVector3 factors(1.0, 1.0, 1.0);
    const bool isOneFactor = hasCentre() || m_factor;
    if (isOneFactor && !m_factor) {
        return refuse("a scaling has no factor");
    }
    for (int axis = 0; axis < 3; ++axis) {
        const auto& value = m_values[static_cast<std::size_t>(axis)];
        factors[axis] = isOneFactor ? *m_factor : value ? value->value : 1.0;
    }
    if (factors[0] == 0.0 || factors[1] == 0.0 || factors[2] == 0.0) {
        return refuse("a scaling has the factor 0");
    }
    if (!isOneFactor && !m_hasWords) {
        return 0;
    }
    addAbout(isOneFactor && (hasCentre() || m_hasWords) ? centre() : gmVector3(),
             gmMatrix4::scale(factors[0], factors[1], factors[2]),
             gmMatrix4::scale(1.0 / factors[0], 1.0 / factors[1], 1.0 / factors[2]));
    return 0;
}

void FrameCommand::addMirrors() {
    for (int axis = 0; axis < 3; ++axis) {
        if (m_values[static_cast<std::size_t>(axis)]) {
            gmVector3 factors(1.0, 1.0, 1.0);
            factors[axis] = -1.0;
            const gmMatrix4 mirror = gmMatrix4::scale(factors[0], factors[1], factors[2]);
            add(mirror, mirror, axis);
        }
    }
}

// A coordinate left out is that of the tool; along the normal of a rotation it does not count.
gmVector3 FrameCommand::centre() const {
    gmVector3 point = control().Position();
    const gmVector3 given = control().LengthsOf(m_values);
    for (int axis = 0; axis < 3; ++axis) {
        if (m_values[static_cast<std::size_t>(axis)]) {
            point[axis] = given[axis];
        }
    }
    if (m_kind == FrameKind::kRotate) {
        point[axesOf(control().plane).normal] = 0.0;
    }
    return point;
}

void FrameCommand::add(const gmMatrix4& matrix, const gmMatrix4& inverse, int axis) {
    control().coordinates.frame.Add(
        {.kind = m_kind, .axis = axis, .matrix = matrix, .inverse = inverse});
}

void FrameCommand::addAbout(const gmVector3& centre, const gmMatrix4& matrix,
                            const gmMatrix4& inverse) {
    const gmMatrix4 there = gmMatrix4::translate(-centre[0], -centre[1], -centre[2]);
    const gmMatrix4 back = gmMatrix4::translate(centre[0], centre[1], centre[2]);
    add(there * matrix * back, there * inverse * back);
}
