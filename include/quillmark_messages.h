#pragma once

#include "quillmark_trace.h" // stddbg, to which everything is printed

#include <array>
#include <csetjmp>
#include <cstdint>
#include <cstdio>

/// The numbered messages of quillmark, for hosts that embed the layer: link libquillmark.a and
/// include this header. Failing routines report a number with parameters; the text comes from a
/// message file. Single-threaded: all state is global and unguarded. docs/messages.md describes the
/// message file and the ends of a run.

// --- Parameters -------------------------------------------------------------------------------

inline constexpr int kMessageIntegers = 12;    ///< integer parameters of one message, at most
inline constexpr int kMessageReals = 12;       ///< real parameters of one message, at most
inline constexpr int kMessageStrings = 5;      ///< string parameters of one message, at most
inline constexpr int kMessageStringWidth = 80; ///< bytes of one string parameter

/// Type codes of the variable argument lists: each is followed by its value, the last is the end.
inline constexpr int kMessageParEnd = 0;    ///< ends the list, no value
inline constexpr int kMessageParLong = 1;   ///< a long, kept in 32 bits
inline constexpr int kMessageParDouble = 2; ///< a double
inline constexpr int kMessageParString = 3; ///< a const char*; null is kept as "(null)"

/// Refusals of the variable argument lists.
inline constexpr int kMessageUnknownType = 2;       ///< a type code that is none of the four
inline constexpr int kMessageTooManyParameters = 3; ///< more parameters of a kind than kept

/// The current parameters, used by every message until the next call replaces them.
extern std::int32_t error_ni4;    ///< integers set, 0 to 12
extern std::int32_t error_nr8;    ///< reals set, 0 to 12
extern std::int32_t error_nbchar; ///< strings set, 0 to 5
extern std::array<std::int32_t, kMessageIntegers> error_i4;
extern std::array<double, kMessageReals> error_r8;
/// Padded with blanks, without a terminator; the length of each stands in error_charlen.
extern std::array<std::array<char, kMessageStringWidth>, kMessageStrings> error_char;
extern std::array<std::int32_t, kMessageStrings> error_charlen; ///< bytes in use, 0 to 80

/// Sets the current parameters: CatSetErrPar(type, value, type, value, ..., 0). Strings are cut to
/// 80 bytes. Returns 0, kMessageUnknownType or kMessageTooManyParameters; a refused list leaves the
/// parameters of the call before in place.
int CatSetErrPar(int type, ...) noexcept;

// --- Catalogue --------------------------------------------------------------------------------

inline constexpr std::int32_t kSeverityFatal = 5; ///< the run ends after the message

extern std::FILE* errorFile;       ///< the open message file, or null; owned by the layer
extern std::int32_t severityLevel; ///< severity of the message last looked up; initially 5

/// Opens the message file named by the environment variable `member`, of which 8 characters count,
/// clears p_dllExitJump and sets severityLevel to 5. Returns 0. A file that cannot be opened is
/// reported with fehler(1), which ends the run; the code is returned when an output function took
/// the severity back.
int CatInitError(const char* member);

/// The text of message `msgnr` with the current parameters in their places, as a new string to be
/// released with free: the non-blank lines, joined by newlines, without a last newline. Empty for a
/// message without text. Null, after a line on the trace stream, when the number is unknown.
[[nodiscard]] char* CatGetLongMessage(std::int32_t msgnr) noexcept;

/// Stub of the short texts: says so on the trace stream, sets severityLevel to 0 and returns a new
/// empty string, to be released with free; null when memory is exhausted.
[[nodiscard]] char* CatGetShortMessage(std::int32_t msgnr) noexcept;

/// Prints the block of a message; never ends the run.
void CatStderrMessage(std::int32_t msgnr) noexcept;

// --- Reporting --------------------------------------------------------------------------------

/// Prints one message; `text` may be null. The result is ignored.
using MessageOutput = int (*)(std::int32_t severity, std::int32_t msgnr, const char* text);

extern MessageOutput pf_foutput; ///< replaces fehler_output_default; null means the default
extern MessageOutput pf_fstack;  ///< called after the first printer when not null

/// Where a fatal message returns to when the system runs as a module: a buffer that the host filled
/// with setjmp, in a function that has not returned. Null (the default, and again after each
/// CatInitError) ends the process with exit(message number) instead.
extern std::jmp_buf* p_dllExitJump;

/// Installs both printers: a null `foutput` installs fehler_output_default, a null `fstack` clears
/// the second one. Returns 0.
int CatInitErrorFehlerFuncs(MessageOutput foutput, MessageOutput fstack) noexcept;

/// Reports message `msgnr`. With a non-empty error stack the stacked messages are printed in its
/// place and the stack is emptied. Does not return from a message of severity 5.
void fehler(std::int32_t msgnr);

/// Prints one message with the current parameters and ends the run at severity 5.
void fehler2(std::int32_t msgnr);

/// The default printer: five lines on the trace stream. Returns 0.
int fehler_output_default(std::int32_t severity, std::int32_t msgnr, const char* text) noexcept;

// --- Error stack ------------------------------------------------------------------------------

/// One deferred message. The list owns its records.
struct ErrorStackRecord {
    std::int32_t msgnr = 0;
    char c[kMessageStrings][kMessageStringWidth] = {}; ///< NUL-terminated, so at most 79 bytes
    std::int32_t i[kMessageIntegers] = {};
    double r[kMessageReals] = {};
    ErrorStackRecord* next = nullptr; ///< null at the end
};

extern ErrorStackRecord* softErrors; ///< the first record, or null

/// Appends a record: SetErrStackPar(msgnr, type, value, ..., 0). Strings are cut to 79 bytes. A
/// real is also refused once 12 integers are stored; that is wanted. Returns 0, kMessageUnknownType
/// or kMessageTooManyParameters (the record then keeps the parameters before the refused one), or
/// 39999 after fehler(39999) when memory is exhausted.
int SetErrStackPar(std::int32_t msgnr, ...);

/// Releases every record.
void freeErrorStack() noexcept;

/// Prints every field of every record.
void dbgErrorStack() noexcept;

/// Reports every record in order and empties the stack, also when a fatal one ends the run. Returns
/// true when the parameters of the last record could not be set.
bool outErrStack();
