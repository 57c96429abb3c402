#include "macro/operators.h"

#include "macro/MacroError.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// compute(a, b) yields the Value of two numbers.
template<class Compute>
int onNumbers(const Value& left, const Value& right, Value& result, Compute compute) {
    const std::optional<double> a = left.number();
    const std::optional<double> b = right.number();
    if (!a || !b) {
        return kWrongType;
    }
    result = compute(*a, *b);
    return 0;
}

template<class Compute>
int arithmetic(const Value& left, const Value& right, Value& result, Compute compute) {
    return onNumbers(left, right, result,
                     [&](double a, double b) { return Value::Real(compute(a, b)); });
}

template<class Compute>
int truth(const Value& left, const Value& right, Value& result, Compute compute) {
    return onNumbers(left, right, result,
                     [&](double a, double b) { return Value::Boolean(compute(a, b)); });
}

template<class Compute>
int quotient(const Value& left, const Value& right, Value& result, Compute compute) {
    return right.number() == 0.0 && left.number() ? kDivisionByZero
                                                  : arithmetic(left, right, result, compute);
}

template<class Compute>
int onBits(const Value& left, const Value& right, Value& result, Compute compute) {
    const std::optional<std::int64_t> a = left.whole();
    const std::optional<std::int64_t> b = right.whole();
    if (!a || !b) {
        return kWrongType;
    }
    result = Value::Integer(compute(*a, *b));
    return 0;
}

bool areEqual(double a, double b, const Equality& equality) noexcept {
    const double difference = std::abs(a - b);
    return a == b || difference < equality.absolute ||
           difference <= equality.relative * std::max(std::abs(a), std::abs(b));
}

int compare(const Value& left, const Value& right, const Equality& equality, bool wanted,
            Value& result) {
    if (left.type() == ValueType::kText && right.type() == ValueType::kText) {
        result = Value::Boolean((left.text() == right.text()) == wanted);
        return 0;
    }
    const bool tellsApart = left.isVacant() != right.isVacant();
    return truth(left, right, result, [&](double a, double b) {
        return (!tellsApart && areEqual(a, b, equality)) == wanted;
    });
}

} // namespace

int keepSign(const Value& operand, Value& result) {
    if (operand.type() == ValueType::kText) {
        return kWrongType;
    }
    result = operand;
    return 0;
}

int changeSign(const Value& operand, Value& result) {
    if (operand.type() == ValueType::kText) {
        return kWrongType;
    }
    if (operand.type() == ValueType::kInteger &&
        *operand.whole() != std::numeric_limits<std::int64_t>::min()) {
        result = Value::Integer(-*operand.whole());
    } else if (!operand.isVacant()) {
        result = Value::Real(-*operand.number());
    } else {
        result = operand;
    }
    return 0;
}

int logicalNot(const Value& operand, Value& result) {
    const std::optional<double> number = operand.number();
    if (!number) {
        return kWrongType;
    }
    result = Value::Boolean(*number == 0.0);
    return 0;
}

int bitNot(const Value& operand, Value& result) {
    const std::optional<std::int64_t> bits = operand.whole();
    if (!bits) {
        return kWrongType;
    }
    result = Value::Integer(~*bits);
    return 0;
}

int add(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return arithmetic(left, right, result, [](double a, double b) { return a + b; });
}

int subtract(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return arithmetic(left, right, result, [](double a, double b) { return a - b; });
}

int multiply(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return arithmetic(left, right, result, [](double a, double b) { return a * b; });
}

int divide(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return quotient(left, right, result, [](double a, double b) { return a / b; });
}

int divideWhole(const Value& left, const Value& right, const Equality& /*equality*/,
                Value& result) {
    return quotient(left, right, result, [](double a, double b) { return std::trunc(a / b); });
}

int raiseToPower(const Value& left, const Value& right, const Equality& /*equality*/,
                 Value& result) {
    return arithmetic(left, right, result, [](double a, double b) { return std::pow(a, b); });
}

int remainderOfDividend(const Value& left, const Value& right, const Equality& /*equality*/,
                        Value& result) {
    return quotient(left, right, result, [](double a, double b) { return std::fmod(a, b); });
}

int remainderFromZero(const Value& left, const Value& right, const Equality& /*equality*/,
                      Value& result) {
    return quotient(left, right, result, [](double a, double b) {
        const double rest = std::fmod(a, b);
        return rest < 0.0 ? rest + std::abs(b) : rest;
    });
}

int isEqual(const Value& left, const Value& right, const Equality& equality, Value& result) {
    return compare(left, right, equality, true, result);
}

int isUnequal(const Value& left, const Value& right, const Equality& equality, Value& result) {
    return compare(left, right, equality, false, result);
}

int isGreater(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return truth(left, right, result, [](double a, double b) { return a > b; });
}

int isGreaterOrSame(const Value& left, const Value& right, const Equality& /*equality*/,
                    Value& result) {
    return truth(left, right, result, [](double a, double b) { return a >= b; });
}

int isLess(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return truth(left, right, result, [](double a, double b) { return a < b; });
}

int isLessOrSame(const Value& left, const Value& right, const Equality& /*equality*/,
                 Value& result) {
    return truth(left, right, result, [](double a, double b) { return a <= b; });
}

int logicalAnd(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return truth(left, right, result, [](double a, double b) { return a != 0.0 && b != 0.0; });
}

int logicalOr(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return truth(left, right, result, [](double a, double b) { return a != 0.0 || b != 0.0; });
}

int logicalXor(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return truth(left, right, result, [](double a, double b) { return (a != 0.0) != (b != 0.0); });
}

int bitAnd(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return onBits(left, right, result, [](std::int64_t a, std::int64_t b) { return a & b; });
}

int bitOr(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return onBits(left, right, result, [](std::int64_t a, std::int64_t b) { return a | b; });
}

int bitXor(const Value& left, const Value& right, const Equality& /*equality*/, Value& result) {
    return onBits(left, right, result, [](std::int64_t a, std::int64_t b) { return a ^ b; });
}
