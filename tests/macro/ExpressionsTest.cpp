// What expressions of each family yield. The rows of the o-word family are what rs274 gives, but
// for the failures in place of its NaN and infinity.

#include "tests/macro/Machine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Row {
    const char* text;
    const char* value;
    Reading reading = Reading::kExpression;
};

void expectRows(Machine& machine, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(machine.value(row.text, row.reading), row.value) << row.text;
    }
}

TEST(Expressions, OWord) {
    Machine machine(oWordSyntax());
    ASSERT_EQ(machine.assign("#5", "7"), 0);
    ASSERT_EQ(machine.assign("# [#5]", "[9]"), 0);
    ASSERT_EQ(machine.assign("#9", "3"), 0);
    ASSERT_EQ(machine.assign("#<Two Words>", "2"), 0);
    expectRows(machine, {
                            {"2**3**2", "64"},
                            {"-2**2", "4"},
                            {"2**-1", "0.5"},
                            {"10-3-2", "5"},
                            {"2+3*4 MOD 5", "4"},
                            {"1 or 1 and 0", "FALSE"},
                            {"1+-+--1", "0"},
                            {"1 2 . 4 5", "12.45"},
                            {". 5", "0.5"},
                            {"s i n[30]*2", "0.9999999999999999"},
                            {"9007199254740993", "9007199254740992"},
                            {"##5", "9"},
                            {"###5 + #< TWOwords >", "5"},
                            {"#sqrt[49]", "9"},
                            {"#5.00009", "7"},
                            {"#[4.99995]", "7"},
                            {"#5.00011", "!90004"},
                            {"#-5", "!90003"},
                            {"#5001", "!90003"},
                            {"#<nix>", "!90003"},
                            {"exists[#<nix>]", "FALSE"},
                            {"exists[#<twowords>]", "TRUE"},
                            {"exists[#[5]] - exists[#5001]", "1"},
                            {"exists[5]", "!90001 @8"},
                            {"exists[#5+1]", "!90001 @10"},
                            {"-7 mod 3", "2"},
                            {"7 mod -3", "1"},
                            {"round[2.5] - round[-2.5]", "6"},
                            {"round[0.49999999999999994]", "1"},
                            {"round[4503599627370497]", "4503599627370497"},
                            {"fix[-2.5]", "-3"},
                            {"fup[-2.5]", "-2"},
                            {"atan[1]/[-1]", "135"},
                            {"atan[0]/[0]", "0"},
                            {"atan[-0]/[-1]", "-180"},
                            {"0.0001 eq 0", "FALSE"},
                            {"0.00009999999999999999 eq 0", "TRUE"},
                            {"0.0001 ne 0", "TRUE"},
                            {"0.00001 gt 0 and 0.00001", "TRUE"},
                            {"5 mod 0", "!90503"},
                            {"0**-1", "!90518"},
                            {"[-8]**2.00001", "!90518"},
                            {"10**300*10**300 gt 1", "!90518"},
                            {"asin[1.0000000000000002]", "!90518"},
                            {"atan[1]", "!90011 @8"},
                            {"sqrt[]", "!90011 @7"},
                            {"sqrt[1,2]", "!90001 @7"},
                            {"pow[2]", "!90005 @1"},
                            {"sqrt4", "!90001 @1"},
                            {"1.2.3", "!90001 @4"},
                            {"", "!90001 @1"},
                            {"[1", "!90001 @3"},
                            {"1]", "!90001 @2"},
                            {"1+ ", "!90001 @4"},
                            {"#< >", "!90001 @4"},
                            {"#<a", "!90001 @4"},
                        });
}

TEST(Expressions, Hash) {
    Machine machine(hashSyntax());
    ASSERT_EQ(machine.assign("#1", "4"), 0);
    ASSERT_EQ(machine.assign("#[#1+1]", "-2.5"), 0);
    ASSERT_EQ(machine.assign("#6", "#99"), 0);
    constexpr Reading kIf = Reading::kCondition;
    expectRows(machine, {
                            {"1+2OR4", "7"},
                            {"2.5AND1", "!90004"},
                            {"1EQ1AND3EQ1", "TRUE"},
                            {"1EQ1AND3EQ1", "FALSE", kIf},
                            {"[3GT2OR1EQ2]AND4", "TRUE", kIf},
                            {"1OR1XOR1", "TRUE", kIf},
                            {"-7MOD3", "-1"},
                            {"ROUND[-2.5]", "-3"},
                            {"ROUND[0.49999999999999994]", "0"},
                            {"FIX[#5]", "-2"},
                            {"FUP[#5]", "-3"},
                            {"ATAN[1]/[-1]", "135"},
                            {"ATAN[1,-1]", "135"},
                            {"ATAN[1]/2", "22.5"},
                            {"ATAN[1,2]/[3]", "8.855017059025997"},
                            {"POW[2,10]+SQR[9]+SQRT[9]", "1030"},
                            {"BIN[37]", "25"},
                            {"BCD[25]", "37"},
                            {"BIN[26]", "!90518"},
                            {"POW[2]", "!90011 @7"},
                            {"1.00000000000001EQ1", "FALSE"},
                            // Vacant variables.
                            {"#0", "vacant"},
                            {"-#7", "vacant"},
                            {"#7", "vacant", Reading::kOperand},
                            {"#7+1", "1"},
                            {"ABS[#7]", "0"},
                            {"#7EQ0", "FALSE"},
                            {"0EQ#7", "FALSE"},
                            {"#7NE0", "TRUE"},
                            {"#7EQ#0", "TRUE"},
                            {"-#7NE[#0]", "FALSE"},
                            {"#7GE0", "TRUE"},
                            {"5/#7", "!90503"},
                            {"##7", "vacant"},
                            {"sin[1]", "!90005 @1"},
                            {"#", "!90001 @2"},
                        });
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
    constexpr Reading kIf = Reading::kCondition;
    expectRows(machine, {
                            {"7 MOD 4.1", "2.9000000000000004"},
                            {"-7 MOD 3", "-1"},
                            {"-7 DIV 2", "-3"},
                            {"6 B_AND 3 B_OR 8", "10"},
                            {"1 B_OR 3 B_XOR 1 B_AND 0", "3"},
                            {"B_NOT 5", "-6"},
                            {"NOT 1 + 1", "1"},
                            {"2 == 1 AND 2", "FALSE"},
                            {"2 == 1 OR 1 AND 0", "FALSE"},
                            {"R1==4 AND R5<0", "TRUE", kIf},
                            {"(R1==4 OR 1==2) AND 2", "TRUE", kIf},
                            {"R1<>4 AND 1 XOR 1", "TRUE", kIf},
                            {"1==1.0000000009", "TRUE"},
                            {"1==1.0000000011", "FALSE"},
                            {"1<1.0000000009", "TRUE"},
                            {"ROUND(-2.5)+TRUNC(-2.5)", "-5"},
                            {"ATAN2(1,-1)", "135"},
                            {"POT(-3)", "9"},
                            {"MINVAL(3,-1) + MAXVAL(2 , 5)", "4"},
                            {"BOUND(1,3,5) + BOUND(1,3,0) + BOUND(1,3,2)", "6"},
                            {"BOUND(3,1,2)", "!90518"},
                            {"BOUND(1,2)", "!90011 @11"},
                            {"1EX-3*width", "0.03"},
                            {"1EX-400", "0"},
                            {"1EX400", "!90518 @7"},
                            {"'H1f'+'B101'", "36"},
                            {"'HFFFFFFFFFFFFFFFF'", "!90518 @20"},
                            {"'HFFFFFFFFFFFFFFFF", "!90001 @19"},
                            {"'B102'", "!90001 @6"},
                            {"'H-1'", "!90001 @5"},
                            {"'HA", "!90001 @4"},
                            {"TITLE==\"AB c\"", "TRUE"},
                            {"TITLE<>\"AB C\"", "TRUE"},
                            {"TITLE/0", "!90004"},
                            {"1/TITLE", "!90004"},
                            {"-TITLE", "!90004"},
                            {"ABS(TITLE)", "!90004"},
                            {"\"a", "!90001 @3"},
                            {"TRUE + FALSE", "1"},
                            {"NONE", "!90003"},
                            {"X1", "!90001 @1"},
                            {"AND 5", "!90001 @1"},
                            {"FOO(1)", "!90005 @1"},
                            {"R[0.5]", "!90004"},
                            {"R99999999999999999999", "!90004"},
                            {"R1000", "!90003"},
                            {"R1 ANDR2", "!90001 @4"},
                            {"R 1", "!90001 @1"},
                        });
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
