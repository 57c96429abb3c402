#include "softCommon/CErrorUtil/processEnd.h"

// The assertion report is wanted in every build type.
#undef NDEBUG
#include <cassert>
#include <cstdio>
#include <cstdlib>

namespace {

ProcessEndHook g_hook = nullptr;
void* g_hookContext = nullptr;

} // namespace

void setProcessEndHook(ProcessEndHook hook, void* context) noexcept {
    g_hook = hook;
    g_hookContext = context;
}

void endProcess(const ProcessEnd& end) {
    if (g_hook != nullptr) {
        g_hook(g_hookContext, end);
    }
    (void)std::fflush(nullptr);
    switch (end.kind) {
    case ProcessEnd::Kind::kAssertion:
        __assert_fail(end.expression, end.file, end.line, end.function);
    case ProcessEnd::Kind::kJump:
        std::longjmp(*end.jump, end.status); // NOLINT(cert-err52-cpp): the host asked for it
    case ProcessEnd::Kind::kExit:
        break;
    }
    std::exit(end.status);
}
