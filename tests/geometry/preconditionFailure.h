#pragma once

#include "tests/support/endOf.h"

#include <string>

/// The expression of the assertion that `action` fails, or "" when it fails none.
template<class Action>
std::string preconditionFailure(const Action& action) {
    const char* const expression = endOf(action).expression;
    return expression == nullptr ? "" : expression;
}
