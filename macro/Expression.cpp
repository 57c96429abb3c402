#include "macro/Expression.h"

#include <algorithm>
#include <utility>

namespace {

// A variable that is located leaves nothing; the others push one value.
int growthOf(ExpressionStep::Kind kind) noexcept {
    return kind == ExpressionStep::Kind::kLocate ? 0 : 1;
}

} // namespace

void Expression::add(const ExpressionStep& step, int growth) {
    m_steps.push_back(step);
    m_depth = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(m_depth) + growth);
    m_most = std::max(m_most, m_depth);
}

void Expression::addConstant(Value value) {
    m_constants.push_back(std::move(value));
    add({.kind = ExpressionStep::Kind::kConstant,
         .index = static_cast<std::uint32_t>(m_constants.size() - 1)},
        1);
}

void Expression::addVariable(ExpressionStep::Kind kind) {
    const ExpressionStep& last = m_steps.back();
    const std::uint32_t constant = last.index;
    // What is computed ends in another step.
    if (last.kind == ExpressionStep::Kind::kConstant) {
        const std::optional<double> number = m_constants[constant].number();
        const std::optional<std::int64_t> whole =
            number ? wholeNumber(*number, m_syntax->indexTolerance) : std::nullopt;
        if (whole) {
            m_constants[constant] = Value::Integer(*whole);
            m_steps.pop_back();
            --m_depth;
            add({kind, ExpressionStep::Variable::kNumber, 0, constant}, growthOf(kind));
            return;
        }
    }
    add({kind, ExpressionStep::Variable::kIndex, 0, 0}, growthOf(kind) - 1);
}

void Expression::addNamedVariable(ExpressionStep::Kind kind, std::string name) {
    m_names.push_back(std::move(name));
    add({kind, ExpressionStep::Variable::kName, 0, static_cast<std::uint32_t>(m_names.size() - 1)},
        growthOf(kind));
}
