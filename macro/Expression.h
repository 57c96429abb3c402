#pragma once

#include "macro/ExpressionSyntax.h"
#include "macro/Value.h"

#include <cstdint>
#include <string>
#include <vector>

/// One instruction of an expression for a stack of values. `index` counts in the tables of the
/// expression or of its syntax.
struct ExpressionStep {
    enum class Kind : std::uint8_t {
        kConstant, ///< pushes constant `index`
        kUnary,    ///< replaces the top
        kBinary,   ///< replaces the two on top
        kCall,     ///< replaces the `count` on top
        kLoad,     ///< pushes the value of a variable
        kExists,   ///< pushes whether a pool has a variable
        kLocate    ///< tells which variable it is; the last step then
    };
    /// How the last three name their variable.
    enum class Variable : std::uint8_t {
        kNumber, ///< constant `index`, a whole number
        kIndex,  ///< the number is the top, which is taken off
        kName    ///< name `index`
    };

    Kind kind;
    Variable variable = Variable::kNumber;
    std::uint32_t count = 0;
    std::uint32_t index = 0;
};

/// An expression, a condition or a variable that was read once and can be evaluated often: steps
/// without jumps. The parser fills it, an Evaluator runs it.
class Expression {
public:
    Expression() noexcept = default;
    /// An empty one; `syntax` must outlive it.
    Expression(const ExpressionSyntax& syntax, Reading reading) noexcept
        : m_syntax(&syntax), m_reading(reading) {}

    /// Appends a step that leaves `growth` values more (or less) on the stack.
    void add(const ExpressionStep& step, int growth);
    void addConstant(Value value);
    /// Appends a step that uses a variable, whose index the steps before it compute; a mere number
    /// becomes part of the step.
    void addVariable(ExpressionStep::Kind kind);
    void addNamedVariable(ExpressionStep::Kind kind, std::string name);

    [[nodiscard]] const ExpressionSyntax& syntax() const noexcept { return *m_syntax; }
    [[nodiscard]] Reading reading() const noexcept { return m_reading; }
    [[nodiscard]] const std::vector<ExpressionStep>& steps() const noexcept { return m_steps; }
    [[nodiscard]] const Value& constant(std::uint32_t index) const { return m_constants[index]; }
    [[nodiscard]] const std::string& name(std::uint32_t index) const { return m_names[index]; }
    [[nodiscard]] std::size_t depth() const noexcept { return m_most; } ///< values on the stack

private:
    const ExpressionSyntax* m_syntax = nullptr;
    Reading m_reading = Reading::kExpression;
    std::vector<ExpressionStep> m_steps;
    std::vector<Value> m_constants;
    std::vector<std::string> m_names;
    std::size_t m_depth = 0;
    std::size_t m_most = 0;
};
