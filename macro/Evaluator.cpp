#include "macro/Evaluator.h"

#include <array>
#include <utility>

int Evaluator::evaluate(const Expression& expression, const PoolChain& pools, Value& result,
                        MacroError& error) {
    VariableId none;
    if (const int code = run(expression, pools, none, error); code != 0) {
        return code;
    }
    result = m_stack.front();
    return 0;
}

int Evaluator::isTrue(const Expression& expression, const PoolChain& pools, bool& truth,
                      MacroError& error) {
    VariableId none;
    if (const int code = run(expression, pools, none, error); code != 0) {
        return code;
    }
    const std::optional<double> number = m_stack.front().number();
    if (!number) {
        return error.set(kWrongType, "Evaluator::isTrue", {"a text is no condition"});
    }
    truth = *number != 0.0;
    return 0;
}

int Evaluator::locate(const Expression& expression, const PoolChain& pools, VariableId& variable,
                      MacroError& error) {
    return run(expression, pools, variable, error);
}

int Evaluator::run(const Expression& expression, const PoolChain& pools, VariableId& variable,
                   MacroError& error) {
    using Kind = ExpressionStep::Kind;
    if (m_stack.size() < expression.depth()) {
        m_stack.resize(expression.depth());
    }
    m_used = 0;
    for (const ExpressionStep& step : expression.steps()) {
        int code = 0;
        switch (step.kind) {
        case Kind::kConstant:
            m_stack[m_used++] = expression.constant(step.index);
            break;
        case Kind::kUnary:
            code = unary(expression.syntax().unary[step.index], error);
            break;
        case Kind::kBinary:
            code = binary(expression.syntax().binary[step.index], expression, error);
            break;
        case Kind::kCall:
            code = call(expression.syntax().functions[step.index], step.count, error);
            break;
        case Kind::kLoad:
        case Kind::kExists:
        case Kind::kLocate:
            code = variableOf(step, expression, variable, error);
            if (code == 0 && step.kind == Kind::kLoad) {
                code = pools.load(variable, m_stack[m_used++], error);
            } else if (code == 0 && step.kind == Kind::kExists) {
                m_stack[m_used++] = Value::Boolean(pools.holds(variable));
            }
            break;
        }
        if (code != 0) {
            return code;
        }
    }
    return 0;
}

int Evaluator::unary(const UnaryOperator& row, MacroError& error) {
    Value& operand = m_stack[m_used - 1];
    const int code = row.operation(operand, operand);
    return code == 0 ? 0
                     : error.set(static_cast<MacroCode>(code), "Evaluator::unary",
                                 {row.spelling, " ", operand.toText()});
}

int Evaluator::binary(const BinaryOperator& row, const Expression& expression, MacroError& error) {
    const OperatorUse& use =
        expression.reading() == Reading::kCondition ? row.inCondition : row.inExpression;
    Value& left = m_stack[m_used - 2];
    const Value& right = m_stack[m_used - 1];
    Value result;
    int code = use.operation(left, right, expression.syntax().equality, result);
    if (code == 0 && !result.isFinite()) {
        code = kOutOfRange;
    }
    if (code != 0) {
        return error.set(static_cast<MacroCode>(code), "Evaluator::binary",
                         {left.toText(), " ", row.spelling, " ", right.toText()});
    }
    left = std::move(result);
    --m_used;
    return 0;
}

int Evaluator::call(const MacroFunction& function, std::size_t count, MacroError& error) {
    std::array<double, kMostArguments> arguments{};
    const std::size_t first = m_used - count;
    for (std::size_t k = 0; k < count; ++k) {
        const Value& argument = m_stack[first + k];
        const std::optional<double> number = argument.number();
        if (!number) {
            return error.set(kWrongType, "Evaluator::call",
                             {function.name, " of ", argument.toText()});
        }
        arguments[k] = *number;
    }
    const Value result = Value::Real(function.compute({arguments.data(), count}));
    if (!result.isFinite()) {
        return error.set(kOutOfRange, "Evaluator::call",
                         {function.name, " of ", m_stack[first].toText(), count > 1 ? ", " : "",
                          count > 1 ? m_stack[first + 1].toText() : ""});
    }
    m_stack[first] = result;
    m_used = first + 1;
    return 0;
}

int Evaluator::variableOf(const ExpressionStep& step, const Expression& expression,
                          VariableId& variable, MacroError& error) {
    switch (step.variable) {
    case ExpressionStep::Variable::kName:
        variable = VariableId::Named(expression.name(step.index));
        return 0;
    case ExpressionStep::Variable::kNumber:
        variable = VariableId::Numbered(*expression.constant(step.index).whole());
        return 0;
    case ExpressionStep::Variable::kIndex:
        break;
    }
    const Value& index = m_stack[--m_used];
    const std::optional<double> number = index.number();
    const std::optional<std::int64_t> whole =
        number ? wholeNumber(*number, expression.syntax().indexTolerance) : std::nullopt;
    if (!whole) {
        return error.set(kWrongType, "Evaluator::variableOf",
                         {"index ", index.toText(), " is no whole number"});
    }
    variable = VariableId::Numbered(*whole);
    return 0;
}
