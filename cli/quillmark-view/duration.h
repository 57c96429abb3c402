#pragma once

#include <string>

/// "1 h 02 min 03.4 s", without what is 0 in front. Seconds, not below 0; a time beyond ages is
/// told in hours alone.
[[nodiscard]] std::string durationText(double seconds);
