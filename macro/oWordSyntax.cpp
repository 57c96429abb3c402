#include "macro/ExpressionSyntax.h"

namespace {

constexpr UnaryOperator kUnary[] = {{"-", changeSign}, {"+", keepSign}};

// The table of this family holds in conditions, too.
constexpr BinaryOperator both(std::string_view spelling, int level, BinaryOperation operation) {
    return {spelling, {level, operation}, {level, operation}};
}
constexpr BinaryOperator kBinary[] = {
    both("**", 1, raiseToPower), both("*", 2, multiply),
    both("/", 2, divide),        both("MOD", 2, remainderFromZero),
    both("+", 3, add),           both("-", 3, subtract),
    both("EQ", 4, isEqual),      both("NE", 4, isUnequal),
    both("GT", 4, isGreater),    both("GE", 4, isGreaterOrSame),
    both("LT", 4, isLess),       both("LE", 4, isLessOrSame),
    both("AND", 5, logicalAnd),  both("OR", 5, logicalOr),
    both("XOR", 5, logicalXor),
};

constexpr MacroFunction kFunctions[] = {
    {"SIN", CallShape::kList, 1, 1, sine},
    {"COS", CallShape::kList, 1, 1, cosine},
    {"TAN", CallShape::kList, 1, 1, tangent},
    {"ASIN", CallShape::kList, 1, 1, arcSine},
    {"ACOS", CallShape::kList, 1, 1, arcCosine},
    {"ATAN", CallShape::kQuotient, 2, 2, arcTangent},
    {"SQRT", CallShape::kList, 1, 1, squareRoot},
    {"ABS", CallShape::kList, 1, 1, absolute},
    {"LN", CallShape::kList, 1, 1, naturalLogarithm},
    {"EXP", CallShape::kList, 1, 1, exponential},
    {"ROUND", CallShape::kList, 1, 1, roundByHalf},
    {"FIX", CallShape::kList, 1, 1, roundDown},
    {"FUP", CallShape::kList, 1, 1, roundUp},
    {"EXISTS", CallShape::kVariable, 1, 1, nullptr},
};

constexpr ExpressionSyntax kSyntax = {
    .name = "o-word",
    .anyCase = true,
    .blanksInside = true,
    .open = '[',
    .close = ']',
    .separator = '\0',
    .textQuote = '\0',
    .variable = {.mark = '#', .indexIsOperand = true, .nameOpen = '<', .nameClose = '>'},
    .number = {},
    .equality = {.absolute = 1e-4},
    .indexTolerance = 1e-4,
    .levels = 5,
    .unary = kUnary,
    .binary = kBinary,
    .functions = kFunctions,
    .constants = {},
};

} // namespace

const ExpressionSyntax& oWordSyntax() noexcept { return kSyntax; }
