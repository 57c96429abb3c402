// Expressions in one of the three families, which the first byte chooses: lines that are computed
// one after the other. The first byte of a line says how it is read; "=" assigns what stands behind
// the first tab to the variable in front of it.

#include "macro/Evaluator.h"
#include "macro/ExpressionParser.h"
#include "macro/StoredPool.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

constexpr std::size_t kMostLines = 50;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool takesName(std::string_view name) { return !name.empty(); }

// A language with variables of every sort, where lines can be computed.
class Language {
public:
    explicit Language(const ExpressionSyntax& syntax) noexcept : m_syntax(syntax) {
        m_pool.addNumbers(
            {.first = 0, .last = 0, .unset = UnsetVariable::kVacant, .isReadOnly = true});
        m_pool.addNumbers({.first = 1, .last = 33, .unset = UnsetVariable::kVacant});
        m_pool.addNumbers({.first = 34, .last = 999});
        m_pool.addNumbers({.first = 1000, .last = 1031, .unset = UnsetVariable::kFailure});
        m_pool.takeNewNames(takesName);
        (void)m_pool.declare("FLAG", ValueType::kBoolean, Value());
        (void)m_pool.declare("COUNT", ValueType::kInteger, Value());
        (void)m_pool.declare("TITLE", ValueType::kText, Value());
        m_pools.append(m_pool);
    }

    void Run(std::string_view line) {
        constexpr Reading kReadings[] = {Reading::kExpression, Reading::kCondition,
                                         Reading::kOperand};
        if (line.empty()) {
            return;
        }
        const char first = line[0];
        line.remove_prefix(1);
        Value value;
        if (first == '=') {
            const std::size_t parting = std::min(line.find('\t'), line.size());
            const std::string_view right = line.substr(std::min(parting + 1, line.size()));
            if (compute(right, Reading::kExpression, value)) {
                assign(line.substr(0, parting), value);
            }
        } else {
            (void)compute(line, kReadings[static_cast<unsigned char>(first) % 3], value);
        }
    }

private:
    bool parse(std::string_view text, Reading reading, Expression& expression) {
        ExpressionParser parser(m_syntax);
        MacroError error;
        const int code = parser.parse(text, reading, expression, error);
        require(code == 0 || isKnown(code));
        require(code == 0 || (error.code() == code && error.column() <= text.size() + 1));
        require(parser.functionNameLength(text) <= text.size());
        std::size_t end = 0;
        Expression prefix;
        MacroError other;
        const bool isPrefix = parser.parsePrefix(text, reading, prefix, end, other) == 0;
        require(!isPrefix || end <= text.size());
        // What is read as a whole is read as its own beginning.
        require(code != 0 || (isPrefix && prefix.steps().size() == expression.steps().size()));
        return code == 0;
    }

    bool compute(std::string_view text, Reading reading, Value& value) {
        Expression expression;
        if (!parse(text, reading, expression)) {
            return false;
        }
        MacroError error;
        const int code = m_evaluator.evaluate(expression, m_pools, value, error);
        require(code == 0 ? value.isFinite() : isKnown(code) && error.code() == code);
        bool truth = false;
        const int other = m_evaluator.isTrue(expression, m_pools, truth, error);
        require(code == 0 || other == code);
        return code == 0;
    }

    void assign(std::string_view text, const Value& value) {
        Expression target;
        VariableId variable;
        MacroError error;
        if (!parse(text, Reading::kVariable, target) ||
            m_evaluator.locate(target, m_pools, variable, error) != 0 ||
            m_pools.assign(variable, value, error) != 0) {
            return;
        }
        Value stored;
        const int code = m_pools.load(variable, stored, error);
        require(code == 0 ? stored.isFinite() : value.isVacant());
    }

    static bool isKnown(int code) { return macroMeaning(code) != nullptr; }

    const ExpressionSyntax& m_syntax;
    StoredPool m_pool{"fuzz"};
    PoolChain m_pools;
    Evaluator m_evaluator;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::array kFamilies{&hashSyntax(), &oWordSyntax(), &rParameterSyntax()};
    if (size == 0) {
        return 0;
    }
    Language language(*kFamilies[data[0] % kFamilies.size()]);
    std::string_view text(reinterpret_cast<const char*>(data), size);
    text.remove_prefix(1);
    for (std::size_t lines = 0; lines < kMostLines && !text.empty(); ++lines) {
        const std::string_view line = text.substr(0, text.find('\n'));
        language.Run(line);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return 0;
}
