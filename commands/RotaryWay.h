#pragma once

/// Which way round a rotary axis goes to a position.
enum class RotaryWay {
    kLinear,   ///< as written, so from 0 to 350 by 350 degrees
    kShortest, ///< at most half a turn; exactly half a turn is positive
    kSign,     ///< the sign is the direction, the number the position
    kPositive,
    kNegative
};
