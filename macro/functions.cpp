#include "macro/functions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace {

constexpr double kOutside = std::numeric_limits<double>::quiet_NaN();
constexpr double kHalfTurn = 180.0;

// What a double holds exactly as a code.
constexpr double kMostDigits = 9'999'999'999'999.0;
constexpr double kMostCode = 0x9'9999'9999'9999.0p0;

// In this order of steps.
double radians(double degrees) noexcept { return degrees * std::numbers::pi / kHalfTurn; }
double degrees(double radians) noexcept { return radians * kHalfTurn / std::numbers::pi; }

bool isCode(double number, double most) noexcept {
    return number >= 0.0 && number <= most && number == std::trunc(number);
}

// The digits of `number` to the base `from`, read to the base `to`.
double changeBase(double number, std::uint64_t from, std::uint64_t to) noexcept {
    auto rest = static_cast<std::uint64_t>(number);
    std::uint64_t result = 0;
    for (std::uint64_t weight = 1; rest != 0; weight *= to, rest /= from) {
        if (rest % from >= to) {
            return kOutside;
        }
        result += rest % from * weight;
    }
    return static_cast<double>(result);
}

} // namespace

double sine(Arguments arguments) noexcept { return std::sin(radians(arguments[0])); }
double cosine(Arguments arguments) noexcept { return std::cos(radians(arguments[0])); }
double tangent(Arguments arguments) noexcept { return std::tan(radians(arguments[0])); }
double arcSine(Arguments arguments) noexcept { return degrees(std::asin(arguments[0])); }
double arcCosine(Arguments arguments) noexcept { return degrees(std::acos(arguments[0])); }

double arcTangent(Arguments arguments) noexcept {
    return degrees(arguments.size() == 1 ? std::atan(arguments[0])
                                         : std::atan2(arguments[0], arguments[1]));
}

double squareRoot(Arguments arguments) noexcept { return std::sqrt(arguments[0]); }
double square(Arguments arguments) noexcept { return arguments[0] * arguments[0]; }
double power(Arguments arguments) noexcept { return std::pow(arguments[0], arguments[1]); }
double absolute(Arguments arguments) noexcept { return std::abs(arguments[0]); }
double naturalLogarithm(Arguments arguments) noexcept { return std::log(arguments[0]); }
double exponential(Arguments arguments) noexcept { return std::exp(arguments[0]); }

double roundHalfAway(Arguments arguments) noexcept { return std::round(arguments[0]); }
double roundDown(Arguments arguments) noexcept { return std::floor(arguments[0]); }
double roundUp(Arguments arguments) noexcept { return std::ceil(arguments[0]); }
double roundToZero(Arguments arguments) noexcept { return std::trunc(arguments[0]); }

double roundByHalf(Arguments arguments) noexcept {
    const double number = arguments[0];
    // Beyond, the sum could lie between two doubles.
    constexpr double kMost = 1 << 30;
    return std::abs(number) < kMost ? std::trunc(number + std::copysign(0.5, number))
                                    : std::round(number);
}

double roundFromZero(Arguments arguments) noexcept {
    return std::signbit(arguments[0]) ? std::floor(arguments[0]) : std::ceil(arguments[0]);
}

double smallest(Arguments arguments) noexcept { return std::ranges::min(arguments); }
double greatest(Arguments arguments) noexcept { return std::ranges::max(arguments); }

double bounded(Arguments arguments) noexcept {
    return arguments[0] > arguments[1] ? kOutside
                                       : std::clamp(arguments[2], arguments[0], arguments[1]);
}

double fromDigitCode(Arguments arguments) noexcept {
    return isCode(arguments[0], kMostCode) ? changeBase(arguments[0], 16, 10) : kOutside;
}

double toDigitCode(Arguments arguments) noexcept {
    return isCode(arguments[0], kMostDigits) ? changeBase(arguments[0], 10, 16) : kOutside;
}
