#include "softCommon/CErrorUtil/messageBlock.h"

#include "include/quillmark_messages.h"
#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/HeapText.h"

namespace {

constexpr char kRule[] = "**************************************************\n";

// The two blocks differ by a blank in two places; that is wanted.
struct BlockTexts {
    const char* number;
    const char* noText;
};
constexpr BlockTexts kReported{"MSG.NR.: ", " --- no Messagetext --- "};
constexpr BlockTexts kLookedUp{"MSG.NR.:  ", " --- no Messagetext ---"};

void printRule() noexcept { (void)std::fputs(kRule, debugStream()); }

void printBody(const BlockTexts& texts, std::int32_t severity, std::int32_t msgnr,
               const char* text) noexcept {
    (void)std::fprintf(debugStream(), "%s%d\n%s\nSEVERITY: %d\n", texts.number, msgnr,
                       text != nullptr ? text : texts.noText, severity);
}

} // namespace

int fehler_output_default(std::int32_t severity, std::int32_t msgnr, const char* text) noexcept {
    printRule();
    printBody(kReported, severity, msgnr, text);
    printRule();
    return 0;
}

void gilerr(std::int32_t msgnr) noexcept {
    printRule();
    HeapText text(CatGetLongMessage(msgnr));
    if (text == nullptr) {
        text.reset(CatGetShortMessage(msgnr));
    }
    printBody(kLookedUp, severityLevel, msgnr, text.get());
    printRule();
}

void CatStderrMessage(std::int32_t msgnr) noexcept { gilerr(msgnr); }
