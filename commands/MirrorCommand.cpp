#include "commands/MirrorCommand.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

#include <algorithm>

MirrorCommand::~MirrorCommand() = default;

void MirrorCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_rotary = control().TakeRotaryValues();
    m_hasWords = std::ranges::any_of(m_values, [](const auto& v) { return v.has_value(); });
}

int MirrorCommand::Act() {
    if (const int code = control().CheckRotary(m_rotary, false); code != 0) {
        return code;
    }
    if (m_isOn && !m_hasWords) {
        return control().Refuse(kBlockRefused, "a mirror names no axis");
    }
    const gmVector3 places = control().LengthsOf(m_values);
    control().Recoordinate([&] {
        for (int axis = 0; axis < 3; ++axis) {
            const bool isNamed = m_values[static_cast<std::size_t>(axis)].has_value();
            if (isNamed || (!m_isOn && !m_hasWords)) {
                control().coordinates.frame.RemoveMirror(axis);
            }
            if (isNamed && m_isOn) {
                mirror(axis, places[axis]);
            }
        }
    });
    return 0;
}

void MirrorCommand::mirror(int axis, double place) {
    gmVector3 factors(1.0, 1.0, 1.0);
    gmVector3 shift;
    factors[axis] = -1.0;
    shift[axis] = 2.0 * place;
    const gmMatrix4 matrix = gmMatrix4::scale(factors[0], factors[1], factors[2]) *
                             gmMatrix4::translate(shift[0], shift[1], shift[2]);
    control().coordinates.frame.Add(
        {.kind = FrameKind::kMirror, .axis = axis, .matrix = matrix, .inverse = matrix});
}
