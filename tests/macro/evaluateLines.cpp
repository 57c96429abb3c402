// Evaluates what it reads, line by line, for expressions.py. Fields are parted by tabs:
//   FAMILY  expression|condition|operand  TEXT     prints Machine::value
//   FAMILY  set                           VARIABLE  TEXT
//   FAMILY  declare                       TYPE      NAME
// The last two print nothing when they succeed.

#include "tests/macro/Machine.h"

#include <iostream>
#include <map>
#include <sstream>
#include <string>

int main() {
    using enum ValueType;
    Machine oWord(oWordSyntax());
    Machine hash(hashSyntax());
    Machine rParameter(rParameterSyntax());
    const std::map<std::string, Machine*> families = {
        {"o-word", &oWord}, {"hash", &hash}, {"R-parameter", &rParameter}};
    const std::map<std::string, Reading> readings = {{"expression", Reading::kExpression},
                                                     {"condition", Reading::kCondition},
                                                     {"operand", Reading::kOperand}};
    const std::map<std::string, ValueType> types = {
        {"boolean", kBoolean}, {"integer", kInteger}, {"real", kReal}, {"text", kText}};

    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream fields(line);
        std::string family;
        std::string action;
        std::string first;
        std::string second;
        std::getline(fields, family, '\t');
        std::getline(fields, action, '\t');
        std::getline(fields, first, '\t');
        std::getline(fields, second);
        Machine& machine = *families.at(family);
        if (action == "declare") {
            (void)machine.pool().declare(second, types.at(first), Value());
        } else if (action != "set") {
            std::cout << machine.value(first, readings.at(action)) << '\n';
        } else if (const int code = machine.assign(first, second); code != 0) {
            std::cout << line << " fails with " << code << '\n';
        }
    }
}
