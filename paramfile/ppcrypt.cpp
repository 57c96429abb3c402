#include "paramfile/ppcrypt.h"

#include "paramfile/codingMarks.h"
#include "paramfile/lineCoder.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/HeapText.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>

namespace {

constexpr std::string_view kVersionTag = "#VERSION: ";

// A corrupt line may be of any length; more than the longest readable line says nothing more.
constexpr int kShownCharacters = 511;

constexpr int kFirstReleaseOfNewKey = 7;

// The version is sought in the plain lines only: behind them it would be found when coding, not
// when decoding.
const CodingKey& chooseKey(std::span<char* const> plainLines) noexcept {
    for (const char* const line : plainLines) {
        if (std::string_view(line).starts_with(kVersionTag)) {
            const std::string_view version = trimmed(line + kVersionTag.size());
            // "V1R5": the release stands from the fourth character on.
            const bool isOld = version.size() >= 4 &&
                               version.find("1R") != std::string_view::npos &&
                               readInteger(version.data() + 3) < kFirstReleaseOfNewKey;
            return isOld ? kCodingKeyBefore7 : kCodingKey;
        }
    }
    return kCodingKey;
}

int convertLine(int option, CodingGenerator& generator, char*& line) noexcept {
    const std::span<const char> text(line, std::strlen(line));
    if (option == kDecodeOption && text.empty()) {
        return kCoderDone;
    }
    const std::size_t length = option == kCodeOption ? codedLength(text.size()) : text.size() / 2;
    HeapText converted(static_cast<char*>(std::malloc(length + 1)));
    if (converted == nullptr) {
        return kCoderNoMemory;
    }
    const std::span<char> result(converted.get(), length);
    const int code = option == kCodeOption ? codeBytes(generator, text, result)
                                           : decodeBytes(generator, text, result);
    if (code == kCoderDone) {
        converted.get()[length] = '\0';
        std::free(line);
        line = converted.release();
    }
    return code;
}

void reportLine(int option, int code, std::ptrdiff_t number, const char* line) noexcept {
    std::fprintf(stderr, "ppcrypt: error in line %ld\n", static_cast<long>(number));
    if (code == kCoderChecksum) {
        std::fputs("Error in GGUVXVEH : Checksum-Error\n", stderr);
    }
    std::fprintf(stderr, "line <%.*s> can't be %s\n", kShownCharacters, line,
                 option == kCodeOption ? "coded" : "decoded");
}

void reportCode(int code) noexcept {
    std::fprintf(stderr, "Error in %s. Rc=%ld\n", "ppcrypt", static_cast<long>(code));
}

} // namespace

int ppcrypt(int option, char** lines) noexcept {
    if (option != kCodeOption && option != kDecodeOption) {
        std::fprintf(stderr, "Internal Error: unknown opt=%d\n", option);
        reportCode(kCoderInternalError);
        return kCoderInternalError;
    }
    if (lines == nullptr) {
        return kCoderDone;
    }
    const std::span<char* const> plainLines = plainHead(lines);
    for (char* const line : plainLines) {
        if (marksPlainFile(line)) {
            if (option == kDecodeOption) {
                return kCoderDone;
            }
            line[0] = '\0';
        }
    }
    CodingGenerator generator;
    vxinit(generator, chooseKey(plainLines));
    for (char** line = lines + plainLines.size(); *line != nullptr; ++line) {
        const int code = convertLine(option, generator, *line);
        if (code != kCoderDone) {
            reportLine(option, code, line - lines + 1, *line);
            reportCode(code);
            return code;
        }
    }
    return kCoderDone;
}
