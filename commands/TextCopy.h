#pragma once

#include <cstddef>
#include <memory>

/// A private copy of a text of the parameter file, with its length at hand. Null when none was set
/// or memory was exhausted.
class TextCopy {
public:
    TextCopy() noexcept = default;
    /// Copies `text`; stays null for a null text and when memory is exhausted.
    explicit TextCopy(const char* text) noexcept;

    [[nodiscard]] char* get() const noexcept { return m_text.get(); }
    [[nodiscard]] std::size_t size() const noexcept { return m_size; }
    /// True for null as well as for "".
    [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
    /// The first byte; 0 when empty.
    [[nodiscard]] char front() const noexcept { return m_front; }

private:
    std::unique_ptr<char[]> m_text;
    std::size_t m_size = 0;
    char m_front = '\0';
};
