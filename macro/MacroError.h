#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

/// The failures of the macro interpreter; their texts are in the message file.
enum MacroCode : int {
    kExpressionUnreadable = 90001, ///< with the column
    kVariableUnknown = 90003,      ///< also a number outside of every pool
    kWrongType = 90004,            ///< also a fraction where a whole number is wanted
    kFunctionUnknown = 90005,
    kVariableReadOnly = 90006,
    kArgumentCount = 90011,
    kDivisionByZero = 90503,
    kOutOfRange = 90518 ///< an argument or a result: nothing is ever infinite or no number
};

/// The meaning of a code as a phrase for a message; null for a code that is none of these.
[[nodiscard]] const char* macroMeaning(int code) noexcept;

/// One failure: its code, the routine that failed, what was wrong, and where. It is filled where
/// the failure is seen and reported by the caller who makes it final, so that an attempt that may
/// fail leaves nothing behind.
class MacroError {
public:
    static constexpr std::size_t kTextSize = 80; ///< bytes of a text with its end: what a message
                                                 ///< keeps; longer ones are cut

    /// Sets the failure and returns `code`. `what` is joined from its parts; bytes that are not
    /// printable ASCII become "?". `column` counts from 1; 0 means that there is none.
    int set(MacroCode code, const char* routine, std::initializer_list<std::string_view> what,
            std::size_t column = 0) noexcept;
    /// Moves the column by `columns`, for a text that was cut out of a longer one. None stays none.
    void shiftColumn(std::size_t columns) noexcept;

    [[nodiscard]] int code() const noexcept { return m_code; } ///< 0 before the first failure
    [[nodiscard]] const char* routine() const noexcept { return m_routine; }
    [[nodiscard]] const char* what() const noexcept { return m_what.data(); }
    [[nodiscard]] std::size_t column() const noexcept { return m_column; }

    /// Puts the failure on the error stack: routine and what was wrong as strings 1 and 2, a column
    /// as integer 1. Prints nothing and never ends the run, also when memory is exhausted and
    /// nothing could be stacked. Returns the code.
    int report() const noexcept;

private:
    int m_code = 0;
    const char* m_routine = "";
    std::size_t m_column = 0;
    std::array<char, kTextSize> m_what{};
};
