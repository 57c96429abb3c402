#pragma once

#include "macro/Expression.h"
#include "macro/MacroError.h"
#include "macro/PoolChain.h"

#include <vector>

/// Computes expressions. It keeps its stack from one to the next, so that numbers cost no
/// allocation. An owner of system variables must not use the Evaluator that asks it.
///
/// Each function returns 0 or the code that `error` then holds; its other results are valid with 0
/// only. Beside the failures of PoolChain there are kWrongType, kDivisionByZero and kOutOfRange.
class Evaluator {
public:
    /// The value; vacant when the expression is nothing but a vacant variable, its signs and
    /// brackets. Never infinite and always a number where it is a real.
    [[nodiscard]] int evaluate(const Expression& expression, const PoolChain& pools, Value& result,
                               MacroError& error);
    /// Whether the value is a number other than 0.
    [[nodiscard]] int isTrue(const Expression& expression, const PoolChain& pools, bool& truth,
                             MacroError& error);
    /// The variable that an expression read as Reading::kVariable names now. A name in it is that
    /// of the expression.
    [[nodiscard]] int locate(const Expression& expression, const PoolChain& pools,
                             VariableId& variable, MacroError& error);

private:
    [[nodiscard]] int run(const Expression& expression, const PoolChain& pools,
                          VariableId& variable, MacroError& error);
    [[nodiscard]] int unary(const UnaryOperator& row, MacroError& error);
    [[nodiscard]] int binary(const BinaryOperator& row, const Expression& expression,
                             MacroError& error);
    [[nodiscard]] int call(const MacroFunction& function, std::size_t count, MacroError& error);
    [[nodiscard]] int variableOf(const ExpressionStep& step, const Expression& expression,
                                 VariableId& variable, MacroError& error);

    std::vector<Value> m_stack;
    std::size_t m_used = 0;
};
