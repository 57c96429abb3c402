#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// The text of one call's statements, built in place. It holds ten numbers of any size with their
/// words, the most that a statement has; what does not fit is left out, never written beyond the
/// end.
class StatementText {
public:
    StatementText& add(std::string_view text) noexcept;
    /// Adds `value` as printf's "%{width}.{decimals}f" prints it in the "C" locale: right-aligned,
    /// rounded half to even on the exact binary value, "inf" and "nan" by name. `width` is at most
    /// 32, `decimals` at most 17.
    StatementText& add(double value, int width, int decimals) noexcept;
    StatementText& add(int value) noexcept;

    [[nodiscard]] std::string_view view() const noexcept { return {m_text.data(), m_length}; }

private:
    [[nodiscard]] char* end() noexcept { return m_text.data() + m_length; }
    [[nodiscard]] char* limit() noexcept { return m_text.data() + m_text.size(); }

    // DBL_MAX has 309 digits before its decimals.
    std::array<char, 4096> m_text;
    std::size_t m_length = 0;
};
