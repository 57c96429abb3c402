#include "macro/MacroError.h"

#include "softCommon/CErrorUtil/errorStack.h"

#include <algorithm>
#include <limits>

const char* macroMeaning(int code) noexcept {
    switch (code) {
    case kExpressionUnreadable:
        return "unreadable expression";
    case kVariableUnknown:
        return "unknown variable";
    case kWrongType:
        return "wrong type";
    case kFunctionUnknown:
        return "unknown function";
    case kVariableReadOnly:
        return "variable that can only be read";
    case kArgumentCount:
        return "wrong number of arguments";
    case kDivisionByZero:
        return "division by zero";
    case kOutOfRange:
        return "out of range";
    default:
        return nullptr;
    }
}

int MacroError::set(MacroCode code, const char* routine,
                    std::initializer_list<std::string_view> what, std::size_t column) noexcept {
    m_code = code;
    m_routine = routine;
    m_column = column;
    std::size_t length = 0;
    for (const std::string_view part : what) {
        for (const char c : part.substr(0, kTextSize - 1 - length)) {
            m_what[length++] = c >= ' ' && c <= '~' ? c : '?';
        }
    }
    m_what[length] = '\0';
    return code;
}

void MacroError::shiftColumn(std::size_t columns) noexcept {
    if (m_column != 0) {
        m_column += columns;
    }
}

int MacroError::report() const noexcept {
    // SetErrStackPar ends the run when memory is exhausted.
    if (ErrorStackRecord* const record = appendErrorRecord(m_code); record != nullptr) {
        const std::string_view routine = std::string_view(m_routine).substr(0, kTextSize - 1);
        std::ranges::copy(routine, record->c[0]);
        std::ranges::copy(m_what, record->c[1]);
        record->i[0] = static_cast<std::int32_t>(
            std::min<std::size_t>(m_column, std::numeric_limits<std::int32_t>::max()));
    }
    return m_code;
}
