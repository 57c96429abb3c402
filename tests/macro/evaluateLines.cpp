// Evaluates what it reads, line by line, for expressions.py. Fields are parted by tabs:
//   FAMILY  expression|condition|operand  TEXT     prints the value, or "!" and the code
//   FAMILY  set                           VARIABLE  TEXT
//   FAMILY  declare                       TYPE      NAME
// The last two print nothing when they succeed.

#include "macro/Evaluator.h"
#include "macro/ExpressionParser.h"
#include "macro/StoredPool.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

struct Family {
    const ExpressionSyntax& syntax;
    StoredPool pool{"program"};
    PoolChain pools;

    Family(const ExpressionSyntax& s, const std::vector<NumberRange>& numbers) : syntax(s) {
        std::ranges::for_each(numbers, [&](const NumberRange& range) { pool.addNumbers(range); });
        pool.takeNewNames([](std::string_view) { return true; });
        pools.append(pool);
    }
};

int evaluate(const Family& family, const std::string& text, Reading reading, Value& value) {
    static Evaluator evaluator;
    ExpressionParser parser(family.syntax);
    Expression expression;
    MacroError error;
    const int code = parser.parse(text, reading, expression, error);
    return code != 0 ? code : evaluator.evaluate(expression, family.pools, value, error);
}

int assign(const Family& family, const std::string& variable, const Value& value) {
    static Evaluator evaluator;
    ExpressionParser parser(family.syntax);
    Expression expression;
    MacroError error;
    VariableId id;
    int code = parser.parse(variable, Reading::kVariable, expression, error);
    code = code != 0 ? code : evaluator.locate(expression, family.pools, id, error);
    return code != 0 ? code : family.pools.assign(id, value, error);
}

std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char c : line) {
        if (c == '\t' && fields.size() < 4) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    fields.resize(4);
    return fields;
}

} // namespace

int main() {
    using enum ValueType;
    Family oWord(oWordSyntax(), {{1, 5000}});
    Family hash(hashSyntax(), {{0, 0, kReal, UnsetVariable::kVacant, true},
                               {1, 999, kReal, UnsetVariable::kVacant}});
    Family rParameter(rParameterSyntax(), {{0, 999}});
    const std::map<std::string, Family*> families = {
        {"o-word", &oWord}, {"hash", &hash}, {"R-parameter", &rParameter}};
    const std::map<std::string, Reading> readings = {{"expression", Reading::kExpression},
                                                     {"condition", Reading::kCondition},
                                                     {"operand", Reading::kOperand}};
    const std::map<std::string, ValueType> types = {
        {"boolean", kBoolean}, {"integer", kInteger}, {"real", kReal}, {"text", kText}};

    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        const std::vector<std::string> fields = fieldsOf(line);
        Family& family = *families.at(fields[0]);
        Value value;
        int code = 0;
        if (fields[1] == "declare") {
            (void)family.pool.declare(fields[3], types.at(fields[2]), Value());
        } else if (fields[1] == "set") {
            code = evaluate(family, fields[3], Reading::kExpression, value);
            code = code != 0 ? code : assign(family, fields[2], value);
            if (code != 0) {
                std::cout << line << " fails with " << code << '\n';
            }
        } else {
            code = evaluate(family, fields[2], readings.at(fields[1]), value);
            std::cout << (code != 0 ? "!" + std::to_string(code) : value.toText()) << '\n';
        }
    }
}
