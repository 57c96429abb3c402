#pragma once

/// Ends the process with the standard assertion report. Out of line, so that the checks stay small.
[[noreturn]] void gmAssertFailed(const char* expression, const char* file, unsigned line,
                                 const char* function);

/// A precondition of the geometry, checked in every build type, NDEBUG or not: a wrong tool path
/// must never be written. The report holds the exact text of the expression.
#define gmAssert(expression)                                                                       \
    ((expression) ? static_cast<void>(0)                                                           \
                  : gmAssertFailed(#expression, __FILE__, __LINE__, __PRETTY_FUNCTION__))
