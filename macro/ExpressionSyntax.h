#pragma once

#include "macro/functions.h"
#include "macro/operators.h"

#include <span>
#include <string_view>

/// How a family of languages writes expressions and what they mean: data that parser and evaluator
/// share. A further family is one more of these tables.

/// What is read. The rules of a condition hold at every depth of its brackets.
enum class Reading {
    kExpression,
    kCondition,
    kOperand, ///< one value with its signs and no operator behind it: the value of a word
    kVariable ///< the left side of an assignment
};

struct UnaryOperator {
    std::string_view spelling;
    UnaryOperation operation;
};

/// An operator where the table of expressions or that of conditions holds: level 1 binds tightest,
/// equal ones bind from left to right.
struct OperatorUse {
    int level;
    BinaryOperation operation;
};

struct BinaryOperator {
    std::string_view spelling;
    OperatorUse inExpression;
    OperatorUse inCondition;
};

enum class CallShape {
    kList,           ///< NAME[a,b]
    kQuotient,       ///< NAME[a]/[b]
    kListOrQuotient, ///< either
    kVariable        ///< NAME[#5]: asks whether the variable exists
};

struct MacroFunction {
    std::string_view name;
    CallShape shape;
    std::size_t fewest; ///< arguments, kMostArguments at most
    std::size_t most;
    FunctionBody compute; ///< null for kVariable
};

inline constexpr std::size_t kMostArguments = 3;

struct NamedConstant {
    std::string_view name;
    bool truth;
};

/// How variables are written; a character of 0 is not in use.
struct VariableSpelling {
    char mark = '\0'; ///< in front of a number or an index in brackets
    bool indexIsOperand =
        false; ///< the index is any operand: #5, ##2, #[e]; else digits or brackets
    char indexOpen = '\0';
    char indexClose = '\0';
    char nameOpen = '\0'; ///< behind the mark: #<name>
    char nameClose = '\0';
    bool bareNames = false; ///< names stand alone: two letters first, an underscore or "$"
};

struct NumberSpelling {
    std::string_view exponent; ///< between number and power of ten; empty: there is none
    char quote = '\0';         ///< around H and hexadecimal digits, or B and binary ones
};

struct ExpressionSyntax {
    std::string_view name;
    bool anyCase;      ///< letters count as capitals
    bool blanksInside; ///< blanks have no meaning at all; else they part words
    char open;         ///< brackets around a part and around arguments
    char close;
    char separator; ///< between arguments
    char textQuote; ///< around a text
    VariableSpelling variable;
    NumberSpelling number;
    Equality equality;
    double indexTolerance; ///< what an index may be off from a whole number
    int levels;            ///< the loosest level of both tables
    std::span<const UnaryOperator> unary;
    std::span<const BinaryOperator> binary;
    std::span<const MacroFunction> functions;
    std::span<const NamedConstant> constants;
};

[[nodiscard]] const ExpressionSyntax& oWordSyntax() noexcept;
[[nodiscard]] const ExpressionSyntax& hashSyntax() noexcept;
[[nodiscard]] const ExpressionSyntax& rParameterSyntax() noexcept;
