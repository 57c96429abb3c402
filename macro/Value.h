#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

enum class ValueType : std::uint8_t {
    kVacant, ///< never set
    kBoolean,
    kInteger,
    kReal,
    kText
};

/// What an expression yields and a variable holds. Small; copying never allocates, and of the
/// makers only Text does.
class Value {
public:
    Value() noexcept = default; ///< vacant
    Value(const Value&) noexcept = default;
    Value(Value&&) noexcept = default;
    ~Value() = default;
    // Numbers are copied all the time, and have no text to share or to let go.
    Value& operator=(const Value& other) noexcept {
        if (this != &other) {
            m_type = other.m_type;
            m_number = other.m_number;
            if (m_text != other.m_text) {
                m_text = other.m_text;
            }
        }
        return *this;
    }
    Value& operator=(Value&& other) noexcept {
        m_type = other.m_type;
        m_number = other.m_number;
        if (m_text != other.m_text) {
            m_text = std::move(other.m_text);
        }
        return *this;
    }
    [[nodiscard]] static Value Boolean(bool truth) noexcept;
    [[nodiscard]] static Value Integer(std::int64_t number) noexcept;
    [[nodiscard]] static Value Real(double number) noexcept;
    [[nodiscard]] static Value Text(std::string_view text);
    /// 0, false or the empty text; vacant for kVacant.
    [[nodiscard]] static Value ZeroOf(ValueType type);

    [[nodiscard]] ValueType type() const noexcept { return m_type; }
    [[nodiscard]] bool isVacant() const noexcept { return m_type == ValueType::kVacant; }
    /// The characters of a text, empty for all other types.
    [[nodiscard]] std::string_view text() const noexcept;
    /// The value where arithmetic wants a number: vacant is 0, a boolean 1 or 0. A text is none.
    [[nodiscard]] std::optional<double> number() const noexcept {
        if (m_type == ValueType::kReal) {
            return m_number.real;
        }
        return m_type == ValueType::kText ? std::nullopt
                                          : std::optional(static_cast<double>(m_number.integer));
    }
    /// The value where a whole number is wanted: that of an integer exactly, a real when it has no
    /// fraction and fits.
    [[nodiscard]] std::optional<std::int64_t> whole() const noexcept;
    /// False only for an infinite real and one that is no number.
    [[nodiscard]] bool isFinite() const noexcept;

    /// The value as a variable of `type` takes it: an integer widens to real, a real becomes an
    /// integer only when it is whole, a boolean counts as 1 or 0, and 1 and 0 become booleans.
    /// Nothing else changes its type: no value then.
    [[nodiscard]] std::optional<Value> fitted(ValueType type) const;
    /// As few digits as read back the same number, with a power of ten only where that is shorter
    /// and the number below 1e-5 or not below 1e15; "TRUE", "FALSE", "vacant"; a text as it is.
    [[nodiscard]] std::string toText() const;

private:
    ValueType m_type = ValueType::kVacant;
    union Number {
        std::int64_t integer = 0; // also of a boolean, and 0 of a vacant
        double real;
    };
    Number m_number;
    std::shared_ptr<const std::string> m_text;
};

/// The whole number that is at most `tolerance` from `number`, when there is one of 64 bits.
[[nodiscard]] std::optional<std::int64_t> wholeNumber(double number, double tolerance) noexcept;
