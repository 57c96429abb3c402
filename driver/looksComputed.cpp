#include "driver/looksComputed.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::string_view kStructure[] = {"CALL",   "CASE",   "DEF",     "ELSE",     "ELSEIF",
                                           "ENDFOR", "ENDIF",  "ENDLOOP", "ENDWHILE", "FOR",
                                           "GOTO",   "GOTOB",  "GOTOC",   "GOTOF",    "IF",
                                           "LOOP",   "REPEAT", "REPEATB", "UNTIL",    "WHILE"};
constexpr std::string_view kNumberedStructure[] = {"DO", "END"};
constexpr std::string_view kBehindOWord[] = {"BREAK",  "CALL",   "CONTINUE",  "DO",     "ELSE",
                                             "ELSEIF", "ENDIF",  "ENDREPEAT", "ENDSUB", "ENDWHILE",
                                             "IF",     "REPEAT", "RETURN",    "SUB",    "WHILE"};
constexpr std::string_view kCallCodes[] = {"G65", "G66", "M97", "M98"}; // of the program in P

bool isSame(std::string_view text, std::string_view capitals) noexcept {
    return std::ranges::equal(text, capitals, {}, toUpperByte);
}

bool isOneOf(std::string_view text, std::span<const std::string_view> words) noexcept {
    return std::ranges::any_of(words, [&](std::string_view word) { return isSame(text, word); });
}

std::string_view withoutBlanks(std::string_view text) noexcept {
    const auto* const first = std::ranges::find_if_not(text, isBlankByte);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

// Takes the bytes of one kind off the front.
std::string_view takeWhile(std::string_view& text, bool (*belongs)(char)) noexcept {
    const auto* const end = std::ranges::find_if_not(text, belongs);
    const std::string_view taken = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(taken.size());
    return taken;
}

bool isIndexed(std::string_view behindMark) noexcept {
    return !behindMark.empty() && (isDigitByte(behindMark[0]) || behindMark[0] == '[' ||
                                   behindMark[0] == '<' || behindMark[0] == '#');
}

/// Follows the words of one block.
class BlockScan {
public:
    // Takes letters with the digits behind them off the front of `text`, and tells whether the
    // block computes.
    bool takeWord(std::string_view& text) noexcept {
        const std::string_view start = text;
        const std::string_view letters = takeWhile(text, isLetterByte);
        std::string_view behind = withoutBlanks(text);
        const std::string_view digits = takeWhile(text, isDigitByte);
        const std::string_view word = start.substr(0, letters.size() + digits.size());
        if (digits.empty() && behind.starts_with('-')) {
            behind = withoutBlanks(behind.substr(1));
        }
        if (digits.empty() && behind.starts_with('[')) {
            return true;
        }
        if (isFirst(letters, digits, behind) ||
            (m_isBehindOWord && isOneOf(letters, kBehindOWord))) {
            return true;
        }
        const std::string_view next = withoutBlanks(text);
        const bool isAssigned = next.starts_with('=') && !next.starts_with("==");
        if (!digits.empty() && isSame(letters, "R") && isAssigned) {
            return true;
        }
        m_isBehindOWord = isSame(letters, "O") && !digits.empty();
        m_hasCall = m_hasCall || isOneOf(word, kCallCodes);
        m_hasProgram = m_hasProgram || (isSame(letters, "P") && !digits.empty());
        m_isFirst = m_isFirst && isSame(letters, "N");
        return (isSame(letters, "O") && text.starts_with('<')) || (m_hasCall && m_hasProgram);
    }

private:
    [[nodiscard]] bool isFirst(std::string_view letters, std::string_view digits,
                               std::string_view behind) const noexcept {
        if (!m_isFirst || behind.starts_with('=')) {
            return false;
        }
        return isOneOf(letters, kStructure) ||
               (isOneOf(letters, kNumberedStructure) &&
                (!digits.empty() || (!behind.empty() && isDigitByte(behind[0]))));
    }

    bool m_isFirst = true; // behind a block number at most
    bool m_isBehindOWord = false;
    bool m_hasCall = false;
    bool m_hasProgram = false;
};

} // namespace

bool looksComputed(std::string_view text) noexcept {
    BlockScan scan;
    while (!text.empty() && text[0] != ';') {
        const char c = text[0];
        if (isLetterByte(c)) {
            if (scan.takeWord(text)) {
                return true;
            }
            continue;
        }
        text.remove_prefix(1);
        if (c == '#' && isIndexed(text)) {
            return true;
        }
        if (c == '(' || c == '"') {
            text.remove_prefix(std::min(text.find(c == '(' ? ')' : c), text.size()));
        }
    }
    return false;
}
