#include "macro/ExpressionSyntax.h"

namespace {

constexpr UnaryOperator kUnary[] = {
    {"-", changeSign}, {"+", keepSign}, {"NOT", logicalNot}, {"B_NOT", bitNot}};

constexpr BinaryOperator both(std::string_view spelling, int level, BinaryOperation operation) {
    return {spelling, {level, operation}, {level, operation}};
}
// In an expression AND, XOR and OR bind tighter than comparisons, in a condition looser: published
// programs write IF R1==1 AND R2==2 without brackets.
constexpr BinaryOperator kBinary[] = {
    both("*", 1, multiply),
    both("/", 1, divide),
    both("DIV", 1, divideWhole),
    both("MOD", 1, remainderOfDividend),
    both("+", 2, add),
    both("-", 2, subtract),
    both("B_AND", 3, bitAnd),
    both("B_XOR", 4, bitXor),
    both("B_OR", 5, bitOr),
    {"AND", {6, logicalAnd}, {7, logicalAnd}},
    {"XOR", {7, logicalXor}, {8, logicalXor}},
    {"OR", {8, logicalOr}, {9, logicalOr}},
    {"==", {9, isEqual}, {6, isEqual}},
    {"<>", {9, isUnequal}, {6, isUnequal}},
    {">", {9, isGreater}, {6, isGreater}},
    {">=", {9, isGreaterOrSame}, {6, isGreaterOrSame}},
    {"<", {9, isLess}, {6, isLess}},
    {"<=", {9, isLessOrSame}, {6, isLessOrSame}},
};

constexpr MacroFunction kFunctions[] = {
    {"SIN", CallShape::kList, 1, 1, sine},
    {"COS", CallShape::kList, 1, 1, cosine},
    {"TAN", CallShape::kList, 1, 1, tangent},
    {"ASIN", CallShape::kList, 1, 1, arcSine},
    {"ACOS", CallShape::kList, 1, 1, arcCosine},
    {"ATAN2", CallShape::kList, 2, 2, arcTangent},
    {"SQRT", CallShape::kList, 1, 1, squareRoot},
    {"POT", CallShape::kList, 1, 1, square},
    {"ABS", CallShape::kList, 1, 1, absolute},
    {"LN", CallShape::kList, 1, 1, naturalLogarithm},
    {"EXP", CallShape::kList, 1, 1, exponential},
    {"ROUND", CallShape::kList, 1, 1, roundHalfAway},
    {"TRUNC", CallShape::kList, 1, 1, roundToZero},
    {"MINVAL", CallShape::kList, 2, 2, smallest},
    {"MAXVAL", CallShape::kList, 2, 2, greatest},
    {"BOUND", CallShape::kList, 3, 3, bounded},
};

constexpr NamedConstant kConstants[] = {{"TRUE", true}, {"FALSE", false}};

constexpr ExpressionSyntax kSyntax = {
    .name = "R-parameter",
    .anyCase = true,
    .blanksInside = false,
    .open = '(',
    .close = ')',
    .separator = ',',
    .textQuote = '"',
    .variable = {.mark = 'R', .indexOpen = '[', .indexClose = ']', .bareNames = true},
    .number = {.exponent = "EX", .quote = '\''},
    .equality = {.relative = 1e-9},
    .indexTolerance = 1e-4,
    .levels = 9,
    .unary = kUnary,
    .binary = kBinary,
    .functions = kFunctions,
    .constants = kConstants,
};

} // namespace

const ExpressionSyntax& rParameterSyntax() noexcept { return kSyntax; }
