#pragma once

#include <span>

/// The codes that a conversion returns; 0 is success. The shell sees the low 8 bits of a code: none
/// of them is 0, 2, 3, 129, 130 or 143, which mean something else there.
enum : int {
    kCommandLineIncomplete = 100,
    kNCFileUnreadable = 200,
    kOutputTypeUnsupported = 201,
    kOutputFileUnwritable = 202,
    kLogFileUnwritable = 203,
    kNoParameterFileName = 300,
    kParameterFileUnreadable = 301,
    kParameterFileEndsEarly = 302,
    kCommandValueEmpty = 303,
    kNoTemporaryFile = 304,
    kRewindFailed = 305,
    kUpdateFailed = 306,
    kDecodeFailed = 307,
    kKeyValueUnknown = 308,
    kDialectUnsupported = 345,
    kMemoryExhausted = 400,
    kBlockUnreadable = 500,
    kNameUnknown = 501,
    kNotComputable = 502,
    kJumpTargetMissing = 503,
    kSubprogramMissing = 504,
    kProgramEndless = 505,
    kProgramAborted = 506,
    kAxisUnknown = 507,
    kRotaryRefused = 508,
    kBlockRefused = 509,
    kArcRefused = 510,
    kWordNotConverted = 511,
    kInternalError = 39999
};

/// The file that a code speaks of.
enum class ConversionFile { kNone, kParameter, kNC, kOutput, kLog };

/// What a code means and what helps, as phrases for a message: the file's name, where the code
/// speaks of one, follows the meaning.
struct ReturnCode {
    int code;
    ConversionFile file;
    const char* meaning;
    const char* remedy;
};

/// Every code but 0, in ascending order: the one source of their texts.
[[nodiscard]] std::span<const ReturnCode> returnCodes() noexcept;

/// The row of `code`; null for 0 and codes that are not in the table.
[[nodiscard]] const ReturnCode* findReturnCode(int code) noexcept;
