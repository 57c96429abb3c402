#pragma once

#include <cstdint>

enum class EventKind : std::uint8_t {
    kTool,
    kDwell,        ///< value: seconds
    kDwellInTurns, ///< value: turns of the spindle
    kStop,
    kOptionalStop,
    kHome,
    kEnd
};

/// Something that happens between two movements.
struct PathEvent {
    EventKind kind = EventKind::kStop;
    double value = 0.0;
    std::uint32_t line = 0;     ///< of its statement, from 1
    std::uint32_t movement = 0; ///< the index of the movement behind it
    std::uint32_t state = 0;    ///< in states, as it holds behind the statement
};
