// What expressions of each family yield. The rows of the o-word family are what rs274 gives, but
// for the failures in place of its NaN and infinity.

#include "tests/macro/Machine.h"
#include "tests/support/cases.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

void expectRows(Machine& machine, const std::string& file, std::size_t count) {
    const std::pair<std::string_view, Reading> readings[] = {{"if ", Reading::kCondition},
                                                             {"operand ", Reading::kOperand}};
    for (auto [text, value] : casesOf((MACRO_DATA + file).c_str(), count)) {
        Reading reading = Reading::kExpression;
        for (const auto& [mark, marked] : readings) {
            if (text.starts_with(mark)) {
                text.erase(0, mark.size());
                reading = marked;
            }
        }
        EXPECT_EQ(machine.value(text, reading), value) << text;
    }
}

TEST(Expressions, OWord) {
    Machine machine(oWordSyntax());
    ASSERT_EQ(machine.assign("#5", "7"), 0);
    ASSERT_EQ(machine.assign("# [#5]", "[9]"), 0);
    ASSERT_EQ(machine.assign("#9", "3"), 0);
    ASSERT_EQ(machine.assign("#<Two Words>", "2"), 0);
    expectRows(machine, "oWord.txt", 56);
}

TEST(Expressions, Hash) {
    Machine machine(hashSyntax());
    ASSERT_EQ(machine.assign("#1", "4"), 0);
    ASSERT_EQ(machine.assign("#[#1+1]", "-2.5"), 0);
    ASSERT_EQ(machine.assign("#6", "#99"), 0);
    expectRows(machine, "hash.txt", 36);
    EXPECT_EQ(machine.assign("#0", "1"), kVariableReadOnly);
    EXPECT_EQ(machine.assign("#1", "#0"), 0);
    EXPECT_EQ(machine.value("#1"), "vacant");
}

TEST(Expressions, RParameter) {
    Machine machine(rParameterSyntax());
    ASSERT_EQ(machine.assign("R1", "4"), 0);
    ASSERT_EQ(machine.assign("R[R1+1]", "-2.5"), 0);
    ASSERT_EQ(machine.pool().declare("WIDTH", ValueType::kReal, Value::Real(30)),
              PoolAnswer::kDone);
    ASSERT_EQ(machine.pool().declare("TITLE", ValueType::kText, Value::Text("AB c")),
              PoolAnswer::kDone);
    expectRows(machine, "rParameter.txt", 53);
    EXPECT_EQ(machine.assign("X1", "1"), kExpressionUnreadable);
    EXPECT_EQ(machine.assign("TITLE", "1"), kWrongType);
}

TEST(Expressions, PrefixEndsWhereTheExpressionEnds) {
    struct Prefix {
        const ExpressionSyntax& syntax;
        Reading reading;
        const char* text;
        std::size_t length;
    };
    const Prefix prefixes[] = {
        {oWordSyntax(), Reading::kOperand, "-#1 Y2", 3},
        {oWordSyntax(), Reading::kOperand, "1 .5 Y2", 4},
        {oWordSyntax(), Reading::kOperand, "sin[30] + 1", 7},
        {oWordSyntax(), Reading::kOperand, "[1+2]*3", 5},
        {oWordSyntax(), Reading::kVariable, "#[1+2] = 3", 6},
        {hashSyntax(), Reading::kExpression, "#2+1 M30", 4},
        {hashSyntax(), Reading::kExpression, "#2MOD3G1", 6},
        {hashSyntax(), Reading::kExpression, "ATAN[1]/[2]/3", 13},
        {hashSyntax(), Reading::kCondition, "#1GE1]DO1", 5},
        {rParameterSyntax(), Reading::kExpression, "R1Y=R2", 2},
        {rParameterSyntax(), Reading::kExpression, " R1+5 Y3", 5},
        {rParameterSyntax(), Reading::kExpression, "1EX", 1},
        {rParameterSyntax(), Reading::kCondition, "R1 == WIDTH GOTOF L", 11},
        {rParameterSyntax(), Reading::kExpression, "R1 + Y", 0},
    };
    for (const Prefix& row : prefixes) {
        Expression expression;
        std::size_t end = 0;
        MacroError error;
        (void)ExpressionParser(row.syntax)
            .parsePrefix(row.text, row.reading, expression, end, error);
        EXPECT_EQ(end, row.length) << row.text;
    }
    EXPECT_EQ(ExpressionParser(hashSyntax()).functionNameLength("ASIN[30]"), 4U);
    EXPECT_EQ(ExpressionParser(hashSyntax()).functionNameLength("AS IN [30]"), 5U);
    EXPECT_EQ(ExpressionParser(hashSyntax()).functionNameLength("SQRT[30]"), 4U);
    EXPECT_EQ(ExpressionParser(hashSyntax()).functionNameLength("S30"), 0U);
    EXPECT_EQ(ExpressionParser(rParameterSyntax()).functionNameLength("cos (1)"), 3U);
}

TEST(Expressions, AnyTextEnds) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const std::string open(200'000, '[');
    for (const ExpressionSyntax* const syntax : {&oWordSyntax(), &hashSyntax()}) {
        Machine machine(*syntax);
        const auto nested = [&](std::size_t depth, const std::string& prefix = "") {
            std::string text;
            for (std::size_t k = 0; k < depth; ++k) {
                text += prefix + "[";
            }
            return machine.value(text + "1" + std::string(depth, ']'));
        };
        EXPECT_EQ(nested(100), "1");
        EXPECT_EQ(nested(101), "!90001 @102");
        EXPECT_EQ(nested(100, "ABS"), "1");
        EXPECT_NE(nested(50, "#").substr(0, 6), "!90001");
        EXPECT_EQ(nested(51, "#"), "!90001 @102");
        EXPECT_EQ(machine.value(open).substr(0, 7), "!90001 ");
        EXPECT_EQ(machine.value(std::string(200'000, '#')).substr(0, 7), "!90001 ");
        EXPECT_EQ(machine.value(std::string(200'000, '-') + "1"), "1");
        EXPECT_EQ(machine.value(std::string(200'000, '9')).substr(0, 7), "!90518 ");
        EXPECT_EQ(machine.value("0." + std::string(200'000, '0') + "9"), "0");
        for (std::size_t first = 0; first < bytes.size(); ++first) {
            EXPECT_EQ(machine.value("1 " + bytes.substr(first, 40) + " 1").substr(0, 7), "!90001 ")
                << first;
        }
    }
    Machine machine(rParameterSyntax());
    EXPECT_EQ(machine.value("TRUE" + std::string(200'000, ')')), "!90001 @5");
    std::string sum = "R1";
    for (int k = 0; k < 100'000; ++k) {
        sum += " + NOT 0";
    }
    EXPECT_EQ(machine.value(sum), "100000");
    EXPECT_EQ(machine.value("1EX-99999999999999999999"), "0");
    EXPECT_EQ(machine.value("0EX99999999999999999999"), "0");
}

} // namespace
