#include "softCommon/CErrorUtil/messageFile.h"

#include "include/quillmark_messages.h"
#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/HeapText.h"

#include <cstdlib>
#include <cstring>

std::FILE* errorFile = nullptr;

namespace {

constexpr std::size_t kBufferSize = 255;
constexpr std::size_t kNumberColumns = 5;
constexpr char kWhiteSpace[] = " \t\n\v\f\r";

using LineBuffer = char[kBufferSize];

// Reads one line without its newline; what the buffer cannot hold is skipped, so that it is never
// taken for a line of its own. Returns false at the end of the file. Without the stream's lock a
// look-up takes half the time (docs/messages.md); nobody else reads this stream.
bool readLine(std::FILE* file, LineBuffer& line) noexcept {
    std::size_t length = 0;
    int c = getc_unlocked(file);
    if (c == EOF) {
        return false;
    }
    for (; c != EOF && c != '\n'; c = getc_unlocked(file)) {
        if (length < kBufferSize - 1) {
            line[length++] = static_cast<char>(c);
        }
    }
    line[length] = '\0';
    return true;
}

bool isHeader(const char* line) noexcept { return line[0] != '/' && line[0] != '&'; }

std::int32_t headerNumber(const char* line) noexcept {
    char columns[kNumberColumns + 1] = {};
    std::memcpy(columns, line, strnlen(line, kNumberColumns));
    return readInteger(columns);
}

// The second word of a header line, when it starts like a number.
bool headerSeverity(const char* line, std::int32_t& severity) noexcept {
    const char* word = line + std::strspn(line, kWhiteSpace);
    word += std::strcspn(word, kWhiteSpace);
    word += std::strspn(word, kWhiteSpace);
    const bool isSigned = *word == '+' || *word == '-';
    if (!isDigitByte(word[isSigned ? 1 : 0])) {
        return false;
    }
    severity = readInteger(word);
    return true;
}

bool findHeader(std::int32_t msgnr, LineBuffer& line) noexcept {
    std::rewind(errorFile);
    while (readLine(errorFile, line)) {
        if (isHeader(line) && headerNumber(line) == msgnr) {
            return true;
        }
    }
    return false;
}

void storeTextLine(LineBuffer& line, MessageLine& field) noexcept {
    line[0] = ' ';
    string_mani(3, line);
    ersetzeFehlerVariablen(line, kMessageLineWidth);
    s2fcpy(field, line, kMessageLineWidth);
}

std::int32_t readLongText(std::int32_t msgnr, std::int32_t& severity, std::int32_t& lines,
                          MessageLine* fields) noexcept {
    LineBuffer line;
    if (errorFile == nullptr) {
        return kMessageUnreadable;
    }
    if (!findHeader(msgnr, line)) {
        return kMessageUnknown;
    }
    if (!headerSeverity(line, severity)) {
        (void)std::fprintf(debugStream(),
                           "guerlm: error scanning severity from error file (error no. %d)\n",
                           msgnr);
        return kMessageUnreadable;
    }
    while (readLine(errorFile, line) && line[0] == '&') {
        if (lines == kMessageLines) {
            return kMessageTooLong;
        }
        storeTextLine(line, fields[lines++]);
    }
    return 0;
}

// Returns 0, or 1 after a line on the trace stream.
std::int32_t openMessageFile(const char* field, int length) noexcept {
    const HeapText name(s2ccpy(field, length));
    string_mani(1, name.get());
    if (errorFile != nullptr) {
        (void)std::fclose(errorFile);
        errorFile = nullptr;
    }
    if (name == nullptr) {
        std::perror("gueuse");
        return 1;
    }
    const char* const path = std::getenv(name.get());
    if (path == nullptr) {
        (void)std::fprintf(debugStream(),
                           "gueuse: Environmentvariable <%s> for Messagefile not defined!\n",
                           name.get());
        return 1;
    }
    errorFile = std::fopen(path, "r");
    if (errorFile == nullptr) {
        (void)std::fprintf(debugStream(), "gueuse: can't open file: <%s>\n        %s=%s<\n",
                           name.get(), name.get(), path);
        return 1;
    }
    return 0;
}

} // namespace

void gueuse(const char* name, std::int32_t* rc, int length) {
    *rc = openMessageFile(name, length);
    if (*rc != 0) {
        (void)std::fprintf(debugStream(), "Error in gueuse. Rc=%d\n", *rc);
        fehler(*rc);
    }
}

void guerlm(std::int32_t msgnr, std::int32_t* severity, std::int32_t* lines, MessageLine* fields,
            std::int32_t* rc) noexcept {
    *severity = 0;
    *lines = 0;
    *rc = readLongText(msgnr, *severity, *lines, fields);
}

void guersm(std::int32_t /*msgnr*/, std::int32_t* severity, char* /*field*/,
            std::int32_t* rc) noexcept {
    (void)std::fputs("guersm (oc_errHndlg) not implemented yet!\n", debugStream());
    *severity = 0;
    *rc = 0;
}
