#include "include/quillmark_messages.h"

#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "softCommon/HeapText.h"

std::jmp_buf* p_dllExitJump = nullptr;
MessageOutput pf_foutput = nullptr;
MessageOutput pf_fstack = nullptr;

namespace {

void printMessage(std::int32_t msgnr) {
    HeapText text(CatGetLongMessage(msgnr));
    if (text != nullptr && *text == '\0') {
        text.reset(CatGetShortMessage(msgnr));
    }
    const MessageOutput output = pf_foutput != nullptr ? pf_foutput : fehler_output_default;
    // The first printer may change the level; that decides about the end, not about the second.
    const std::int32_t severity = severityLevel;
    output(severity, msgnr, text.get());
    if (pf_fstack != nullptr) {
        pf_fstack(severity, msgnr, text.get());
    }
}

// Nothing stays behind for the run after the jump: records that were not reached would be reported
// as its own. No object with a destructor may be alive in the frames that the jump skips.
[[noreturn]] void endRun(std::int32_t msgnr) {
    freeErrorStack();
    ProcessEnd end;
    end.status = msgnr;
    if (p_dllExitJump == nullptr) {
        (void)std::fputs("Program aborted.\n", debugStream());
    } else {
        (void)std::fputs("Module aborted.\n", debugStream());
        end.kind = ProcessEnd::Kind::kJump;
        end.jump = p_dllExitJump;
    }
    endProcess(end);
}

} // namespace

int CatInitErrorFehlerFuncs(MessageOutput foutput, MessageOutput fstack) noexcept {
    pf_foutput = foutput != nullptr ? foutput : fehler_output_default;
    pf_fstack = fstack;
    return 0;
}

void fehler(std::int32_t msgnr) {
    if (softErrors == nullptr) {
        fehler2(msgnr);
    } else {
        outErrStack();
    }
}

void fehler2(std::int32_t msgnr) {
    printMessage(msgnr);
    if (severityLevel == kSeverityFatal) {
        endRun(msgnr);
    }
}
