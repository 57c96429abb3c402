#pragma once

#include <span>

/// What functions compute. They get as many finite arguments as their table allows. A result that
/// is infinite or no number says that an argument is outside of the function's range.
using Arguments = std::span<const double>;
using FunctionBody = double (*)(Arguments arguments) noexcept;

// Angles are in degrees.
double sine(Arguments arguments) noexcept;
double cosine(Arguments arguments) noexcept;
double tangent(Arguments arguments) noexcept;
double arcSine(Arguments arguments) noexcept;
double arcCosine(Arguments arguments) noexcept;
/// Of one argument -90 to 90; of two, y and x, -180 to 180, and 0 for the origin.
double arcTangent(Arguments arguments) noexcept;

double squareRoot(Arguments arguments) noexcept;
double square(Arguments arguments) noexcept;
double power(Arguments arguments) noexcept;
double absolute(Arguments arguments) noexcept;
double naturalLogarithm(Arguments arguments) noexcept;
double exponential(Arguments arguments) noexcept;

/// To the nearest whole number, halves away from 0.
double roundHalfAway(Arguments arguments) noexcept;
/// The same as half is added and the fraction cut: 0.49999999999999994 gives 1 here.
double roundByHalf(Arguments arguments) noexcept;
double roundDown(Arguments arguments) noexcept;
double roundUp(Arguments arguments) noexcept;
double roundToZero(Arguments arguments) noexcept;
double roundFromZero(Arguments arguments) noexcept;

double smallest(Arguments arguments) noexcept;
double greatest(Arguments arguments) noexcept;
/// Low limit, high limit, value: the value, or the limit that it exceeds.
double bounded(Arguments arguments) noexcept;

// Whole numbers of up to 13 decimal digits from and to a code of four bits a digit.
double fromDigitCode(Arguments arguments) noexcept;
double toDigitCode(Arguments arguments) noexcept;
