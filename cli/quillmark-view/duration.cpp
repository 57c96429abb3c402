#include "cli/quillmark-view/duration.h"

#include <cmath>
#include <cstdio>

std::string durationText(double seconds) {
    constexpr double kMinute = 60.0;
    constexpr double kHour = 3600.0;
    constexpr double kAges = 1e9;
    char text[512];
    if (seconds >= kAges) {
        (void)std::snprintf(text, sizeof text, "%.3g h", seconds / kHour);
        return text;
    }
    const double rounded = std::round(seconds * 10.0) / 10.0;
    const double hours = std::floor(rounded / kHour);
    const double minutes = std::floor((rounded - hours * kHour) / kMinute);
    const double rest = rounded - hours * kHour - minutes * kMinute;
    if (hours > 0.0) {
        (void)std::snprintf(text, sizeof text, "%.0f h %02.0f min %04.1f s", hours, minutes, rest);
    } else if (minutes > 0.0) {
        (void)std::snprintf(text, sizeof text, "%.0f min %04.1f s", minutes, rest);
    } else {
        (void)std::snprintf(text, sizeof text, "%.1f s", rest);
    }
    return text;
}
