#include "include/quillmark_messages.h"

#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/catalogueHooks.h"
#include "softCommon/CErrorUtil/messageFile.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/HeapText.h"

#include <cstring>

std::int32_t severityLevel = kSeverityFatal;

namespace {

constexpr unsigned kNameWidth = 8;
constexpr std::int32_t kAllocationFailed = 1;

// The text of a fixed field as a string, without its padding.
template<std::size_t width>
struct FieldText {
    explicit FieldText(const char (&field)[width]) noexcept {
        std::memcpy(text, field, width);
        string_mani(1, text);
    }
    char text[width + 1] = {};
};

// Appends a line and a newline; false when memory is exhausted.
bool appendLine(HeapText& text, const char* line) noexcept {
    const std::size_t length = std::strlen(text.get());
    char* const grown =
        static_cast<char*>(std::realloc(text.get(), length + std::strlen(line) + sizeof "\n"));
    if (grown == nullptr) {
        std::perror("CatGetLongMessag (realloc)");
        return false;
    }
    (void)text.release(); // NOLINT(bugprone-unused-return-value): realloc took it over
    text.reset(grown);
    std::memcpy(stpcpy(grown + length, line), "\n", sizeof "\n");
    return true;
}

// The non-blank lines joined by newlines; what there is so far, with a code, without memory.
HeapText joinLines(const MessageLine (&fields)[kMessageLines], std::int32_t& rc) noexcept {
    HeapText text(static_cast<char*>(std::calloc(1, 1)));
    if (text == nullptr) {
        std::perror("CatGetLongMessag (malloc)");
        rc = kAllocationFailed;
        return text;
    }
    for (const MessageLine& field : fields) {
        const FieldText<kMessageLineWidth> line(field);
        if (line.text[0] != '\0' && !appendLine(text, line.text)) {
            rc = kAllocationFailed;
            break;
        }
    }
    if (*text != '\0') {
        text.get()[std::strlen(text.get()) - 1] = '\0';
    }
    return text;
}

void reportError(const char* routine, std::int32_t rc) noexcept {
    if (rc != 0) {
        (void)std::fprintf(debugStream(), "Error in %s. Rc=%d\n", routine, rc);
    }
}

} // namespace

int CatInitError(const char* member) {
    p_dllExitJump = nullptr;
    severityLevel = kSeverityFatal;
    char field[kNameWidth];
    s2fcpy(field, member, kNameWidth);
    std::int32_t rc = 0;
    gueuse(field, &rc, kNameWidth);
    if (rc != 0) {
        (void)std::fprintf(debugStream(), "CatInitError: member <%s> cannot be accessed! (rc=%d)\n",
                           FieldText<kNameWidth>(field).text, rc);
        return rc;
    }
    for (std::int32_t severity = 1; severity <= kSeverityFatal; ++severity) {
        if (const int code = gueini(severity); code != 0) {
            (void)std::fprintf(debugStream(),
                               "Error in gueini: invalid input arguments! (isev=%d)\n", severity);
            rc = code;
        }
    }
    return rc;
}

char* CatGetLongMessage(std::int32_t msgnr) noexcept {
    MessageLine fields[kMessageLines];
    std::memset(fields, ' ', sizeof fields);
    std::int32_t severity = 0;
    std::int32_t lines = 0;
    std::int32_t rc = 0;
    guerlm(msgnr, &severity, &lines, fields, &rc);
    if (rc != 0) {
        severityLevel = kSeverityFatal;
        (void)std::fprintf(debugStream(), "\nCatGetLongMessage: MsgNr. = %d unknown. isev=%d\n\n",
                           msgnr, kSeverityFatal);
        return nullptr;
    }
    // A message without text leaves the severity of the last one. That is wanted.
    if (lines > 0) {
        severityLevel = severity;
    }
    HeapText text = joinLines(fields, rc);
    reportError("CatGetLongMessage", rc);
    return text.release();
}

char* CatGetShortMessage(std::int32_t msgnr) noexcept {
    char field[kShortMessageWidth];
    std::memset(field, ' ', sizeof field);
    std::int32_t rc = 0;
    guersm(msgnr, &severityLevel, field, &rc);
    if (rc != 0) {
        severityLevel = kSeverityFatal;
        (void)std::fprintf(debugStream(), "CatGetShortMessage: MsgNr.=%d unknown. isev=%d\n", msgnr,
                           kSeverityFatal);
    }
    char* const text = strdup(FieldText<kShortMessageWidth>(field).text);
    if (text == nullptr) {
        std::perror("CatGetShortMessage (strdup)");
    }
    reportError("CatGetShortMessage", rc);
    return text;
}
