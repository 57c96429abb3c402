#include "macro/Value.h"

#include <charconv>
#include <cmath>

namespace {

constexpr double kBeyondInteger = 9223372036854775808.0; // 2 to the power of 63

std::string realText(double number) {
    // As long as it is readable, without a power of ten.
    constexpr double kSmall = 1e-5;
    constexpr double kLarge = 1e15;
    const double size = std::abs(number);
    char text[32];
    char* const end = text + sizeof text;
    return {text, number == 0.0 || (size >= kSmall && size < kLarge)
                      ? std::to_chars(text, end, number, std::chars_format::fixed).ptr
                      : std::to_chars(text, end, number).ptr};
}

} // namespace

std::optional<std::int64_t> wholeNumber(double number, double tolerance) noexcept {
    const double nearest = std::nearbyint(number);
    if (std::abs(number - nearest) <= tolerance && nearest >= -kBeyondInteger &&
        nearest < kBeyondInteger) {
        return static_cast<std::int64_t>(nearest);
    }
    return std::nullopt;
}

Value Value::Boolean(bool truth) noexcept {
    Value value;
    value.m_type = ValueType::kBoolean;
    value.m_number.integer = truth ? 1 : 0;
    return value;
}

Value Value::Integer(std::int64_t number) noexcept {
    Value value;
    value.m_type = ValueType::kInteger;
    value.m_number.integer = number;
    return value;
}

Value Value::Real(double number) noexcept {
    Value value;
    value.m_type = ValueType::kReal;
    value.m_number.real = number;
    return value;
}

Value Value::Text(std::string_view text) {
    Value value;
    value.m_text = std::make_shared<const std::string>(text);
    value.m_type = ValueType::kText;
    return value;
}

Value Value::ZeroOf(ValueType type) {
    switch (type) {
    case ValueType::kBoolean:
        return Boolean(false);
    case ValueType::kInteger:
        return Integer(0);
    case ValueType::kReal:
        return Real(0.0);
    case ValueType::kText:
        return Text({});
    case ValueType::kVacant:
        break;
    }
    return {};
}

std::string_view Value::text() const noexcept {
    return m_text == nullptr ? std::string_view() : *m_text;
}

std::optional<std::int64_t> Value::whole() const noexcept {
    if (m_type == ValueType::kReal) {
        return wholeNumber(m_number.real, 0.0);
    }
    return m_type == ValueType::kText ? std::nullopt : std::optional(m_number.integer);
}

bool Value::isFinite() const noexcept {
    return m_type != ValueType::kReal || std::isfinite(m_number.real);
}

std::optional<Value> Value::fitted(ValueType type) const {
    if (type == m_type) {
        return *this;
    }
    const bool isNumber = m_type != ValueType::kText && m_type != ValueType::kVacant;
    const std::optional<std::int64_t> integer = isNumber ? whole() : std::nullopt;
    if (type == ValueType::kReal && isNumber) {
        return Real(*number());
    }
    if (type == ValueType::kInteger && integer) {
        return Integer(*integer);
    }
    if (type == ValueType::kBoolean && integer && (*integer == 0 || *integer == 1)) {
        return Boolean(*integer == 1);
    }
    return std::nullopt;
}

std::string Value::toText() const {
    switch (m_type) {
    case ValueType::kBoolean:
        return m_number.integer != 0 ? "TRUE" : "FALSE";
    case ValueType::kInteger:
        return std::to_string(m_number.integer);
    case ValueType::kReal:
        return realText(m_number.real);
    case ValueType::kText:
        return *m_text;
    case ValueType::kVacant:
        break;
    }
    return "vacant";
}
