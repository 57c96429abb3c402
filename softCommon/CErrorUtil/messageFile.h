#pragma once

#include <cstdint>

/// The message file, read from its start at every look-up: messages may stand in any order, the
/// first header line with the wanted number wins. "/" starts a comment line, "&" a line of the long
/// text of the message before it, anything else a header line: number in columns 1 to 5, severity
/// as second word.

inline constexpr int kMessageLines = 10;      ///< text lines of one message, at most
inline constexpr int kMessageLineWidth = 70;  ///< characters of one text line
inline constexpr int kShortMessageWidth = 35; ///< characters of a short text

/// One text line, padded with blanks, without a terminator.
using MessageLine = char[kMessageLineWidth];

/// Codes of guerlm.
inline constexpr std::int32_t kMessageUnreadable =
    1;                                             ///< no open file, or a header without severity
inline constexpr std::int32_t kMessageUnknown = 2; ///< no header line with the number
inline constexpr std::int32_t kMessageTooLong = 7; ///< the first 10 lines are there

/// Closes the message file and opens the one named by the environment variable in `name`, a field
/// of `length` bytes. `*rc` is 0, or 1 after a report through fehler, which may not return.
void gueuse(const char* name, std::int32_t* rc, int length);

/// Reads the long text of a message, placeholders replaced, into `fields` (10 of them, blank before
/// the call) and sets its severity and the number of lines. `*rc` is 0 or one of the codes above.
void guerlm(std::int32_t msgnr, std::int32_t* severity, std::int32_t* lines, MessageLine* fields,
            std::int32_t* rc) noexcept;

/// Stub of the short text: prints that it is one, leaves `field` (35 bytes) as it is and sets the
/// severity and `*rc` to 0.
void guersm(std::int32_t msgnr, std::int32_t* severity, char* field, std::int32_t* rc) noexcept;
