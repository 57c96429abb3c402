#include "tests/macro/Machine.h"

Machine::Machine(const ExpressionSyntax& syntax) : m_parser(syntax) {
    using enum ValueType;
    if (&syntax == &hashSyntax()) {
        m_pool.addNumbers({0, 0, kReal, UnsetVariable::kVacant, true});
        m_pool.addNumbers({1, 999, kReal, UnsetVariable::kVacant});
    } else if (&syntax == &oWordSyntax()) {
        m_pool.addNumbers({1, 5000});
    } else {
        m_pool.addNumbers({0, 999});
    }
    m_pool.takeNewNames([](std::string_view) { return true; });
    m_pools.append(m_pool);
}

std::string Machine::value(const std::string& text, Reading reading) {
    Expression expression;
    Value value;
    MacroError error;
    int code = m_parser.parse(text, reading, expression, error);
    if (code == 0 && reading == Reading::kCondition) {
        bool truth = false;
        code = m_evaluator.isTrue(expression, m_pools, truth, error);
        value = Value::Boolean(truth);
    } else if (code == 0) {
        code = m_evaluator.evaluate(expression, m_pools, value, error);
    }
    if (code == 0) {
        return value.toText();
    }
    return "!" + std::to_string(code) +
           (error.column() != 0 ? " @" + std::to_string(error.column()) : "");
}

int Machine::assign(const std::string& variable, const std::string& text) {
    Expression left;
    Expression right;
    Value value;
    VariableId id;
    MacroError error;
    int code = m_parser.parse(variable, Reading::kVariable, left, error);
    code = code != 0 ? code : m_parser.parse(text, Reading::kExpression, right, error);
    code = code != 0 ? code : m_evaluator.evaluate(right, m_pools, value, error);
    code = code != 0 ? code : m_evaluator.locate(left, m_pools, id, error);
    return code != 0 ? code : m_pools.assign(id, value, error);
}
