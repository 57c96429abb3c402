#pragma once

#include "macro/Value.h"

/// What operators compute. Arithmetic is done in double precision. A vacant operand counts as 0 and
/// a boolean as 1 or 0. Each returns 0, or kWrongType or kDivisionByZero and then leaves `result`;
/// it may be one of the operands. A result that is infinite or no number is told by the caller.

/// When two numbers are equal: the same, or closer than `absolute`, or apart by `relative` of the
/// greater one at most.
struct Equality {
    double absolute = 0.0;
    double relative = 0.0;
};

using UnaryOperation = int (*)(const Value& operand, Value& result);
using BinaryOperation = int (*)(const Value& left, const Value& right, const Equality& equality,
                                Value& result);

// A sign leaves a vacant value vacant.
int keepSign(const Value& operand, Value& result);
int changeSign(const Value& operand, Value& result);
int logicalNot(const Value& operand, Value& result);
int bitNot(const Value& operand, Value& result);

int add(const Value& left, const Value& right, const Equality& equality, Value& result);
int subtract(const Value& left, const Value& right, const Equality& equality, Value& result);
int multiply(const Value& left, const Value& right, const Equality& equality, Value& result);
int divide(const Value& left, const Value& right, const Equality& equality, Value& result);
int divideWhole(const Value& left, const Value& right, const Equality& equality, Value& result);
int raiseToPower(const Value& left, const Value& right, const Equality& equality, Value& result);
/// The remainder with the sign of the dividend.
int remainderOfDividend(const Value& left, const Value& right, const Equality& equality,
                        Value& result);
/// The remainder that is never negative.
int remainderFromZero(const Value& left, const Value& right, const Equality& equality,
                      Value& result);

// Comparisons yield booleans. Texts can be equal or not, no more. A vacant value is equal to a
// vacant one alone; the others take it as 0.
int isEqual(const Value& left, const Value& right, const Equality& equality, Value& result);
int isUnequal(const Value& left, const Value& right, const Equality& equality, Value& result);
int isGreater(const Value& left, const Value& right, const Equality& equality, Value& result);
int isGreaterOrSame(const Value& left, const Value& right, const Equality& equality, Value& result);
int isLess(const Value& left, const Value& right, const Equality& equality, Value& result);
int isLessOrSame(const Value& left, const Value& right, const Equality& equality, Value& result);

// Every number but 0 is true.
int logicalAnd(const Value& left, const Value& right, const Equality& equality, Value& result);
int logicalOr(const Value& left, const Value& right, const Equality& equality, Value& result);
int logicalXor(const Value& left, const Value& right, const Equality& equality, Value& result);

// On integers of 64 bits; an operand with a fraction is a failure.
int bitAnd(const Value& left, const Value& right, const Equality& equality, Value& result);
int bitOr(const Value& left, const Value& right, const Equality& equality, Value& result);
int bitXor(const Value& left, const Value& right, const Equality& equality, Value& result);
