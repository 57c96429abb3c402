// Values and pools of variables, and what a failure leaves on the error stack.

#include "include/quillmark_messages.h"
#include "macro/Evaluator.h"
#include "macro/ExpressionParser.h"
#include "macro/StoredPool.h"
#include "macro/SystemPool.h"
#include "tests/faults/Fault.h"
#include "tests/support/endOf.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <utility>

namespace {

using enum ValueType;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();

// What a variable of the type becomes, "-" for what does not fit.
std::string fitted(const Value& value, ValueType type) {
    const std::optional<Value> result = value.fitted(type);
    EXPECT_TRUE(!result || result->type() == type);
    return result ? result->toText() : "-";
}

TEST(Pools, ValuesFitTheirTypes) {
    struct Row {
        Value value;
        const char* boolean;
        const char* integer;
        const char* real;
        const char* text;
    };
    const Row rows[] = {
        {Value(), "-", "-", "-", "-"},
        {Value::Boolean(true), "TRUE", "1", "1", "-"},
        {Value::Integer(0), "FALSE", "0", "0", "-"},
        {Value::Integer(kMost), "-", "9223372036854775807", "9223372036854775808", "-"},
        {Value::Real(-7.0), "-", "-7", "-7", "-"},
        {Value::Real(0.1), "-", "-", "0.1", "-"},
        {Value::Real(-9223372036854775808.0), "-", "-9223372036854775808", "-9223372036854775808",
         "-"},
        {Value::Real(9223372036854775808.0), "-", "-", "9223372036854775808", "-"},
        {Value::Real(123456789012345.0), "-", "123456789012345", "123456789012345", "-"},
        {Value::Real(0.0000125), "-", "-", "0.0000125", "-"},
        {Value::Text("1"), "-", "-", "-", "1"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(fitted(row.value, kBoolean), row.boolean) << row.value.toText();
        EXPECT_EQ(fitted(row.value, kInteger), row.integer) << row.value.toText();
        EXPECT_EQ(fitted(row.value, kReal), row.real) << row.value.toText();
        EXPECT_EQ(fitted(row.value, kText), row.text) << row.value.toText();
    }
    EXPECT_TRUE(Value().isVacant());
    EXPECT_EQ(Value().toText(), "vacant");
}

// Position and tool of a machine that counts its settings.
class Owner : public SystemOwner {
public:
    Value systemValue(int quantity, std::int64_t place) override {
        return quantity == 9 ? m_tool : Value::Real(10.0 * quantity + static_cast<double>(place));
    }
    void setSystemValue(int /*quantity*/, std::int64_t place, const Value& value) override {
        m_tool = value;
        m_place = place;
    }
    Value m_tool;
    std::int64_t m_place = -1;
};

constexpr SystemVariable kSystem[] = {
    {"", 5420, 5422, 1},
    {"_X", 0, 0, 2},
    {"TOOL", 0, 0, 9, true, kInteger},
    {"", 100, 101, 9, true, kText},
};

// A chain of three pools, in which "_" marks names that the call level does not take.
class Chain {
public:
    Chain() {
        m_local.addNumbers({1, 9});
        m_local.takeNewNames([](std::string_view name) { return name[0] != '_'; });
        m_program.addNumbers({1, 50, kReal, UnsetVariable::kVacant});
        m_program.addNumbers({51, 60, kInteger, UnsetVariable::kFailure});
        m_program.addNumbers({61, 70, kReal, UnsetVariable::kZero, true});
        m_program.takeNewNames([](std::string_view name) { return name[0] == '_'; });
        m_pools.append(m_local);
        m_pools.append(m_program);
        m_pools.append(m_system);
    }

    std::string load(const VariableId& id) {
        Value value;
        MacroError error;
        return m_pools.load(id, value, error) == 0 ? value.toText() : error.what();
    }
    int assign(const VariableId& id, const Value& value) {
        MacroError error;
        return m_pools.assign(id, value, error);
    }

    Owner m_owner;
    StoredPool m_local{"call"};
    StoredPool m_program{"program"};
    SystemPool m_system{"system", kSystem, m_owner};
    PoolChain m_pools;
};

VariableId numbered(std::int64_t number) { return VariableId::Numbered(number); }
VariableId named(std::string_view name) { return VariableId::Named(name); }

TEST(Pools, AreSearchedInOrder) {
    Chain chain;
    const Value five = Value::Real(5.0);
    EXPECT_EQ(chain.assign(numbered(1), five), 0);
    EXPECT_EQ(chain.assign(numbered(10), five), 0);
    EXPECT_EQ(chain.assign(named("A"), five), 0);
    EXPECT_EQ(chain.assign(named("_A"), Value::Boolean(true)), 0);
    EXPECT_EQ(chain.load(named("_A")), "1");

    // A call: a level of its own, the rest is shared.
    StoredPool callee("callee");
    callee.addNumbers({1, 9});
    EXPECT_EQ(&chain.m_pools.exchange(0, callee), &chain.m_local);
    EXPECT_EQ(chain.load(numbered(1)), "0");
    EXPECT_EQ(chain.load(numbered(10)), "5");
    EXPECT_EQ(chain.load(named("A")), "variable A does not exist");
    EXPECT_EQ(chain.assign(named("A"), five), kVariableUnknown);
    EXPECT_EQ(callee.declare("A", kInteger, Value::Real(0.5)), PoolAnswer::kWrongType);
    EXPECT_EQ(callee.declare("A", kInteger, Value()), PoolAnswer::kDone);
    EXPECT_EQ(chain.load(named("A")), "0");
    EXPECT_EQ(chain.assign(named("A"), five), 0);
    EXPECT_EQ(chain.load(named("A")), "5");
    EXPECT_EQ(callee.declare("FLAG", kBoolean, Value()), PoolAnswer::kDone);
    EXPECT_EQ(chain.load(named("FLAG")), "FALSE");
    EXPECT_EQ(chain.assign(named("A"), Value::Real(0.5)), kWrongType);
    EXPECT_EQ(chain.assign(numbered(1), Value::Real(6.0)), 0);
    callee.clear();
    EXPECT_EQ(chain.load(numbered(1)), "0");
    EXPECT_FALSE(chain.m_pools.holds(named("A")));
    chain.m_pools.exchange(0, chain.m_local);
    EXPECT_EQ(chain.load(numbered(1)), "5");
    EXPECT_EQ(chain.load(named("A")), "5");
}

TEST(Pools, SayWhatIsNeverSetAndReadOnly) {
    Chain chain;
    EXPECT_EQ(chain.load(numbered(9)), "0");
    EXPECT_EQ(chain.load(numbered(50)), "vacant");
    EXPECT_EQ(chain.load(numbered(60)), "variable 60 was never set");
    EXPECT_EQ(chain.load(numbered(-1)), "variable -1 does not exist");
    EXPECT_TRUE(chain.m_pools.holds(numbered(60)));
    EXPECT_FALSE(chain.m_pools.holds(numbered(71)));
    EXPECT_EQ(chain.assign(numbered(60), Value::Real(2.0)), 0);
    EXPECT_EQ(chain.load(numbered(60)), "2");
    EXPECT_EQ(chain.load(numbered(59)), "variable 59 was never set");
    EXPECT_EQ(chain.assign(numbered(60), Value::Real(2.5)), kWrongType);
    EXPECT_EQ(chain.load(numbered(60)), "2");
    EXPECT_EQ(chain.assign(numbered(70), Value::Real(1.0)), kVariableReadOnly);
    EXPECT_EQ(chain.assign(numbered(50), Value::Real(1.0)), 0);
    EXPECT_EQ(chain.assign(numbered(50), Value::Boolean(true)), 0);
    EXPECT_EQ(chain.load(numbered(50)), "1");
    EXPECT_EQ(chain.assign(numbered(50), Value()), 0);
    EXPECT_EQ(chain.load(numbered(50)), "vacant");
    EXPECT_EQ(chain.assign(numbered(1), Value()), kWrongType);
    EXPECT_EQ(chain.assign(named("B"), Value()), kWrongType);
}

TEST(Pools, SystemValuesComeFromTheirOwner) {
    Chain chain;
    EXPECT_EQ(chain.load(numbered(5422)), "12");
    EXPECT_EQ(chain.load(named("_X")), "20");
    EXPECT_EQ(chain.load(named("TOOL")), "vacant");
    EXPECT_EQ(chain.assign(numbered(5420), Value::Real(1.0)), kVariableReadOnly);
    // The system has the name, so that no pool before it makes one.
    EXPECT_EQ(chain.assign(named("_X"), Value::Real(1.0)), kVariableReadOnly);
    EXPECT_EQ(chain.assign(named("TOOL"), Value::Real(1.5)), kWrongType);
    EXPECT_EQ(chain.assign(named("TOOL"), Value::Real(3.0)), 0);
    EXPECT_EQ(chain.m_owner.m_tool.type(), kInteger);
    EXPECT_EQ(chain.load(named("TOOL")), "3");
    EXPECT_EQ(chain.assign(numbered(101), Value::Text("T")), 0);
    EXPECT_EQ(chain.m_owner.m_place, 1);
    chain.m_owner.m_tool = Value::Real(std::numeric_limits<double>::infinity());
    EXPECT_EQ(chain.load(named("TOOL")), "variable TOOL is inf");
}

TEST(Pools, AFailureIsStackedAndTheRunGoesOn) {
    const Chain chain;
    Expression expression;
    Value value;
    MacroError error;
    ASSERT_EQ(
        ExpressionParser(hashSyntax()).parse("4/[#2-#2]", Reading::kExpression, expression, error),
        0);
    Evaluator evaluator;
    ASSERT_EQ(evaluator.evaluate(expression, chain.m_pools, value, error), kDivisionByZero);
    EXPECT_EQ(softErrors, nullptr);
    error.shiftColumn(4);
    EXPECT_EQ(error.report(), kDivisionByZero);
    const std::string text = "SIN[\x01" + std::string(100, 'x');
    error.set(kExpressionUnreadable, "parse", {"at ", text}, 3);
    error.shiftColumn(4);

    // Without a message file and without memory.
    ASSERT_EQ(errorFile, nullptr);
    EXPECT_EQ(endOf([&] {
                  EXPECT_EQ(error.report(), kExpressionUnreadable);
                  const Fault fault(FaultKind::kMemory, 0);
                  EXPECT_EQ(error.report(), kExpressionUnreadable);
                  EXPECT_TRUE(fault.happened());
              }).status,
              -1);
    ASSERT_NE(softErrors, nullptr);
    EXPECT_EQ(softErrors->msgnr, kDivisionByZero);
    EXPECT_STREQ(softErrors->c[0], "Evaluator::binary");
    EXPECT_STREQ(softErrors->c[1], "4 / 0");
    EXPECT_EQ(softErrors->i[0], 0);
    ASSERT_NE(softErrors->next, nullptr);
    EXPECT_STREQ(softErrors->next->c[1], ("at SIN[?" + std::string(71, 'x')).c_str());
    EXPECT_EQ(softErrors->next->i[0], 7);
    EXPECT_EQ(softErrors->next->next, nullptr);
    freeErrorStack();
}

TEST(Pools, NumbersCostNoAllocation) {
    Chain chain;
    Evaluator evaluator;
    Expression expression;
    Expression left;
    Value value;
    VariableId id;
    MacroError error;
    ExpressionParser parser(oWordSyntax());
    ASSERT_EQ(parser.parse("#1 + sin[#[#1 + 2]] * [3 - #<_long_name_of_a_variable>]",
                           Reading::kExpression, expression, error),
              0);
    ASSERT_EQ(parser.parse("#[#1 + 1]", Reading::kVariable, left, error), 0);
    ASSERT_EQ(chain.assign(named("_LONG_NAME_OF_A_VARIABLE"), Value::Real(2.0)), 0);
    const auto turn = [&] {
        EXPECT_EQ(evaluator.evaluate(expression, chain.m_pools, value, error), 0);
        EXPECT_EQ(evaluator.locate(left, chain.m_pools, id, error), 0);
        EXPECT_EQ(chain.m_pools.assign(id, value, error), 0);
    };
    turn();
    const Fault fault(FaultKind::kMemory, 0);
    turn();
    EXPECT_FALSE(fault.happened());
}

} // namespace
