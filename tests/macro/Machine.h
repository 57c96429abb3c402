#pragma once

#include "macro/Evaluator.h"
#include "macro/ExpressionParser.h"
#include "macro/StoredPool.h"

#include <string>

/// A family with one pool of variables: those that its programs use, up to 999 (5000 for the o-word
/// family), and all names that are assigned to.
class Machine {
public:
    explicit Machine(const ExpressionSyntax& syntax);

    [[nodiscard]] StoredPool& pool() { return m_pool; }
    [[nodiscard]] ExpressionParser& parser() { return m_parser; }
    /// The value (of a condition whether it is true) as text, or "!" and the code, with " @" and
    /// the column where there is one.
    std::string value(const std::string& text, Reading reading = Reading::kExpression);
    /// The code of "VARIABLE = TEXT".
    int assign(const std::string& variable, const std::string& text);

private:
    ExpressionParser m_parser;
    StoredPool m_pool{"program"};
    PoolChain m_pools;
    Evaluator m_evaluator;
};
