#include "macro/ExpressionSyntax.h"

namespace {

constexpr UnaryOperator kUnary[] = {{"-", changeSign}, {"+", keepSign}};

constexpr BinaryOperator both(std::string_view spelling, int level, BinaryOperation operation) {
    return {spelling, {level, operation}, {level, operation}};
}
// Published programs write IF[#1 EQ 1 AND #2 EQ 2] without inner brackets, so in a condition the
// words that join comparisons come last and are logical.
constexpr BinaryOperator kBinary[] = {
    both("*", 1, multiply),
    both("/", 1, divide),
    both("MOD", 1, remainderOfDividend),
    {"AND", {1, bitAnd}, {4, logicalAnd}},
    both("+", 2, add),
    both("-", 2, subtract),
    {"OR", {2, bitOr}, {6, logicalOr}},
    {"XOR", {2, bitXor}, {5, logicalXor}},
    both("EQ", 3, isEqual),
    both("NE", 3, isUnequal),
    both("GT", 3, isGreater),
    both("LT", 3, isLess),
    both("GE", 3, isGreaterOrSame),
    both("LE", 3, isLessOrSame),
};

constexpr MacroFunction kFunctions[] = {
    {"SIN", CallShape::kList, 1, 1, sine},
    {"COS", CallShape::kList, 1, 1, cosine},
    {"TAN", CallShape::kList, 1, 1, tangent},
    {"ASIN", CallShape::kList, 1, 1, arcSine},
    {"ACOS", CallShape::kList, 1, 1, arcCosine},
    {"ATAN", CallShape::kListOrQuotient, 1, 2, arcTangent},
    {"SQRT", CallShape::kList, 1, 1, squareRoot},
    {"SQR", CallShape::kList, 1, 1, squareRoot},
    {"POW", CallShape::kList, 2, 2, power},
    {"ABS", CallShape::kList, 1, 1, absolute},
    {"LN", CallShape::kList, 1, 1, naturalLogarithm},
    {"EXP", CallShape::kList, 1, 1, exponential},
    {"ROUND", CallShape::kList, 1, 1, roundHalfAway},
    {"FIX", CallShape::kList, 1, 1, roundToZero},
    {"FUP", CallShape::kList, 1, 1, roundFromZero},
    {"BIN", CallShape::kList, 1, 1, fromDigitCode},
    {"BCD", CallShape::kList, 1, 1, toDigitCode},
};

constexpr ExpressionSyntax kSyntax = {
    .name = "hash",
    .anyCase = false,
    .blanksInside = true,
    .open = '[',
    .close = ']',
    .separator = ',',
    .textQuote = '\0',
    .variable = {.mark = '#', .indexIsOperand = true},
    .number = {},
    .equality = {},
    .indexTolerance = 1e-4,
    .levels = 6,
    .unary = kUnary,
    .binary = kBinary,
    .functions = kFunctions,
    .constants = {},
};

} // namespace

const ExpressionSyntax& hashSyntax() noexcept { return kSyntax; }
