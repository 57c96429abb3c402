#include "commands/PoleCommand.h"

#include "commands/Control.h"
#include "driver/returnCodes.h"

#include <algorithm>

PoleCommand::~PoleCommand() = default;

void PoleCommand::takeWords(char* line) {
    m_values = control().TakeAxisWords(line);
    m_rotary = control().TakeRotaryValues();
    m_direction.reset();
    if (control().polar.TakeWords(line, control().Status())) {
        m_direction = control().polar.TakeDirection();
    }
}

// Plane and diameters of the block count.
int PoleCommand::takeOffset(gmVector3& offset) const {
    const bool hasWords =
        std::ranges::any_of(m_values, [](const auto& value) { return value.has_value(); });
    if (m_direction && hasWords) {
        return control().Refuse(kBlockRefused, "a pole has coordinates, and a radius or an angle");
    }
    if (m_values[static_cast<std::size_t>(axesOf(control().plane).normal)]) {
        return control().Refuse(kBlockRefused, "a pole has a coordinate outside of the plane");
    }
    offset = m_direction ? PolarCoordinates::OffsetOf(*m_direction, control().plane)
                         : control().LengthsOf(m_values);
    return 0;
}

int PoleCommand::Act() {
    PolarCoordinates& polar = control().polar;
    gmVector3 offset;
    if (const int code = control().CheckRotary(m_rotary, false); code != 0) {
        return code;
    }
    if (const int code = takeOffset(offset); code != 0) {
        return code;
    }
    switch (m_base) {
    case Base::kPosition:
        polar.SetPole(control().Position() + offset);
        break;
    case Base::kZero:
        polar.SetPole(offset);
        break;
    case Base::kPole:
        polar.SetPole(polar.Pole() + offset);
        break;
    }
    return 0;
}
