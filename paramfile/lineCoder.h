#pragma once

#include "paramfile/codingGenerator.h"

#include <cstddef>
#include <span>

/// The layout that both generations of coded files share: every plain byte as two upper-case
/// hexadecimal digits, then the check digit, which is the sum of the plain bytes modulo 16. A byte
/// is coded by adding a whole number from the generator modulo 255, so the bytes 0 and 255 stand in
/// no coded text: the first ends a line, the second does not survive the remainder.

/// Results of the line coders; 0 is success.
enum CoderResult : int {
    kCoderDone = 0,
    kCoderUndecodable = 1,      ///< wrong length, not hexadecimal, or a byte that no text gives
    kCoderChecksum = 2,         ///< the decoded bytes do not add up to the check digit
    kCoderUncodable = 3,        ///< a plain byte 0 or 255
    kCoderTooLong = 4,          ///< a plain line that does not fit its record
    kCoderNoMemory = 5,         ///< memory exhausted
    kCoderInternalError = 39999 ///< unknown option or activity
};

/// The length of the coded form of `plainLength` bytes.
[[nodiscard]] constexpr std::size_t codedLength(std::size_t plainLength) noexcept {
    return 2 * plainLength + 1;
}

/// Codes `plain` into `coded`, which holds exactly codedLength(plain.size()) characters. Neither
/// has a terminating NUL. On failure `coded` and the generator are left as they are.
[[nodiscard]] int codeBytes(CodingGenerator& generator, std::span<const char> plain,
                            std::span<char> coded) noexcept;

/// Decodes `coded` into `plain`, whose sizes are related as above (otherwise undecodable). Digits
/// are read in either case. On failure the contents of `plain` mean nothing.
[[nodiscard]] int decodeBytes(CodingGenerator& generator, std::span<const char> coded,
                              std::span<char> plain) noexcept;
