#pragma once

#include <csetjmp>

/// How the process, or the module in a host, is about to end. Every deliberate end of this system
/// goes through endProcess.
struct ProcessEnd {
    enum class Kind {
        kAssertion, ///< a precondition failed: standard assertion report, then abort
        kExit,      ///< exit(status)
        kJump       ///< longjmp(*jump, status), for a host that wants control back
    };

    Kind kind = Kind::kExit;
    int status = 0;                   ///< exit status or value of the jump
    std::jmp_buf* jump = nullptr;     ///< kJump only; set by the host
    const char* expression = nullptr; ///< kAssertion only: exact text of the failed expression
    const char* file = nullptr;       ///< kAssertion only
    unsigned line = 0;                ///< kAssertion only
    const char* function = nullptr;   ///< kAssertion only
};

/// Called first at every end. It may print, and it may throw to take the end over (tests and fuzz
/// targets do); when it returns, the end proceeds. `context` is the pointer given with the hook.
using ProcessEndHook = void (*)(void* context, const ProcessEnd& end);

/// Installs the hook of this process; null removes it. The library itself never installs one.
void setProcessEndHook(ProcessEndHook hook, void* context) noexcept;

/// Calls the hook, flushes every open stream, then ends as `end` says. Returns only by the hook's
/// exception or the jump.
[[noreturn]] void endProcess(const ProcessEnd& end);
