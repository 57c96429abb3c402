#pragma once

#include "softCommon/CErrorUtil/processEnd.h"

/// Runs `action` and returns the end of the process that it asks for, in place of ending; status
/// -1 and no expression when it asks for none.
template<class Action>
ProcessEnd endOf(const Action& action) {
    ProcessEnd seen;
    seen.status = -1;
    setProcessEndHook([](void*, const ProcessEnd& end) { throw end; }, nullptr);
    try {
        action();
    } catch (const ProcessEnd& end) {
        seen = end;
    }
    setProcessEndHook(nullptr, nullptr);
    return seen;
}
