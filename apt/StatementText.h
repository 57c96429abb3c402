#pragma once

#include "apt/fixedNumber.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

/// The text of one call's statements, built in place. It holds ten numbers of any size with their
/// words, the most that a statement has. What does not fit is left out and isWhole tells it;
/// nothing is written beyond the end.
class StatementText {
public:
    // Inlined, a literal is a store or two in place of a call.
    [[gnu::always_inline]] StatementText& add(std::string_view text) noexcept {
        const std::size_t room = m_text.size() - m_length;
        if (text.size() <= room) {
            std::memcpy(end(), text.data(), text.size());
            m_length += text.size();
        } else {
            m_isWhole = false;
        }
        return *this;
    }
    /// Adds a number as "%11.5lf": a coordinate or a component of a direction.
    StatementText& coordinate(double value) noexcept { return fixed<11, 5>(value); }
    /// Adds a number as "%13.5lf": a coordinate or radius of a circle statement.
    StatementText& circleValue(double value) noexcept { return fixed<13, 5>(value); }
    /// Adds a number as "%10.4lf": a feed or a speed.
    StatementText& rate(double value) noexcept { return fixed<10, 4>(value); }
    /// Adds a number as "%10.6lf": a feed or a pitch that four decimals cannot hold.
    StatementText& fineRate(double value) noexcept { return plain(value, 10, 6); }
    /// Adds a number as "%10.7lf": a component of a tool axis that turns.
    StatementText& direction(double value) noexcept { return plain(value, 10, 7); }
    /// Adds a number as "%.4lf".
    StatementText& exact(double value) noexcept { return plain(value, 0, 4); }
    /// Adds a whole number.
    StatementText& add(int value) noexcept;

    /// False when something did not fit: the text must not be used as a statement then.
    [[nodiscard]] bool isWhole() const noexcept { return m_isWhole; }
    [[nodiscard]] std::string_view view() const noexcept { return {m_text.data(), m_length}; }

private:
    template<int Width, int Decimals>
    StatementText& fixed(double value) noexcept {
        return endAt(writeFixed<Width, Decimals>(end(), limit(), value));
    }
    // For numbers that are seldom written.
    StatementText& plain(double value, std::ptrdiff_t width, int decimals) noexcept;
    // Null when the number did not fit.
    StatementText& endAt(const char* last) noexcept {
        if (last != nullptr) {
            m_length = static_cast<std::size_t>(last - m_text.data());
        } else {
            m_isWhole = false;
        }
        return *this;
    }
    [[nodiscard]] char* end() noexcept { return m_text.data() + m_length; }
    [[nodiscard]] char* limit() noexcept { return m_text.data() + m_text.size(); }

    // DBL_MAX has 309 digits before its decimals.
    std::array<char, 4096> m_text;
    std::size_t m_length = 0;
    bool m_isWhole = true;
};
