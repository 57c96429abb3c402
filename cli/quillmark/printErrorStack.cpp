#include "cli/quillmark/printErrorStack.h"

#include "cli/shared/printText.h"
#include "include/quillmark_messages.h"
#include "macro/MacroError.h"

void printErrorStack(std::FILE* stream) noexcept {
    for (const ErrorStackRecord* record = softErrors; record != nullptr; record = record->next) {
        const char* const meaning = macroMeaning(record->msgnr);
        if (meaning == nullptr) {
            continue; // a return code, which its own line tells
        }
        std::fprintf(stream, "quillmark: message %d: %s: ", static_cast<int>(record->msgnr),
                     meaning);
        printText(stream, record->c[1]);
        if (record->i[0] != 0) {
            std::fprintf(stream, ", column %d", static_cast<int>(record->i[0]));
        }
        std::fputs(" (", stream);
        printText(stream, record->c[0]);
        std::fputs(")\n", stream);
    }
    freeErrorStack();
}
