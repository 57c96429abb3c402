#pragma once

#include "softCommon/CErrorUtil/processEnd.h"

#include <string>

/// The expression of the assertion that `action` fails, or "" when it fails none.
template<class Action>
std::string preconditionFailure(const Action& action) {
    struct Failure {
        std::string expression;
    };
    setProcessEndHook([](void*, const ProcessEnd& end) { throw Failure{end.expression}; }, nullptr);
    std::string expression;
    try {
        action();
    } catch (const Failure& failure) {
        expression = failure.expression;
    }
    setProcessEndHook(nullptr, nullptr);
    return expression;
}
