#include "driver/RestScan.h"

#include "commands/PassedWords.h"
#include "driver/takeWord.h"
#include "driver/usualCodes.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

namespace {

constexpr std::string_view kAxes = "XYZUVWABCxyzuvwabc";
constexpr std::string_view kBeginsValue = "+-.,=#[";
constexpr std::string_view kBeginsExpression = "#[=";
constexpr std::string_view kGoesOn = "+-*/^.,=#["; // what stands behind a number and changes it

bool isOneOf(char c, std::string_view set) noexcept {
    return set.find(c) != std::string_view::npos;
}

bool isNumberByte(char c) noexcept { return isDigitByte(c) || c == '.'; }

// The sign or operator with the digits behind it, or with the one byte that stands there.
std::string_view keyOf(std::string_view fragment) noexcept {
    const auto* const end = std::find_if_not(fragment.begin() + 1, fragment.end(), isDigitByte);
    const auto length = static_cast<std::size_t>(end - fragment.begin());
    return fragment.substr(0, std::max<std::size_t>(length, 2));
}

// The letters of the word that ends in front of `at`, with all that stands between.
std::string_view wordBefore(std::string_view text, std::size_t at) noexcept {
    std::size_t begin = at;
    while (begin > 0 && !isLetterByte(text[begin - 1]) && !isBlankByte(text[begin - 1])) {
        --begin;
    }
    while (begin > 0 && isLetterByte(text[begin - 1])) {
        --begin;
    }
    return text.substr(begin, at - begin);
}

bool isLetterWithDigits(std::string_view word, std::string_view letters) noexcept {
    return word.size() > 1 && isOneOf(word[0], letters) &&
           std::all_of(word.begin() + 1, word.end(), isDigitByte);
}

} // namespace

RestScan::RestScan(const Block& block, const RestContext& context) noexcept
    : m_text(block.Text()), m_context(context) {
    const std::string_view rest = block.Rest();
    std::string_view words = rest;
    std::string_view before;
    for (std::string_view word = takeWord(words, context.separator); !word.empty();
         word = takeWord(words, context.separator)) {
        if (isLetterByte(word.front())) {
            judgeWord(word);
        } else if (isOneOf(word.front(), kGoesOn)) {
            const bool isGlued = before.data() + before.size() == word.data();
            judgeFragment(word, isGlued ? before : std::string_view());
        }
        before = word;
    }
}

void RestScan::judgeWord(std::string_view word) noexcept {
    if (const auto note = usualNoteOf(word)) {
        m_notes[static_cast<std::size_t>(*note)] = true;
    }
    if (const auto danger = usualDangerOf(word, m_context.isLathe)) {
        keep(*danger, word, word);
    } else if (isUnreadAxis(word)) {
        keep(Warning::Kind::kUnreadAxis, word, word);
    }
}

// A block whose positions are all computed does not move at all.
bool RestScan::isUnreadAxis(std::string_view word) const noexcept {
    if (word.size() < 2 || !isOneOf(word[0], kAxes)) {
        return false;
    }
    const std::string_view value = word.substr(isOneOf(word[1], "+-") ? 2 : 1);
    const bool isExpression = !value.empty() && isOneOf(value[0], kBeginsExpression);
    return (m_context.hasMoved && (isDigitByte(word[1]) || isOneOf(word[1], kBeginsValue))) ||
           isExpression;
}

void RestScan::keep(Warning::Kind kind, std::string_view word, std::string_view rest) noexcept {
    const auto at = static_cast<std::size_t>(kind);
    if (m_words[at].empty() && !m_context.passed.HasNoEffect(word, m_context.separator)) {
        m_words[at] = word;
        m_rests[at] = rest;
    }
}

// The words around it were cut out: whether it stood behind a number, only the text tells.
void RestScan::judgeFragment(std::string_view fragment, std::string_view before) noexcept {
    const bool isPoint = fragment[0] == '.' || fragment[0] == ',';
    if (fragment.size() == 1 && !isPoint) {
        return;
    }
    const std::string_view key = keyOf(fragment);
    const std::size_t at = findBehindNumber(key);
    if (at == std::string_view::npos) {
        return;
    }
    const std::string_view word = wordBefore(m_text, at);
    // That number was not read either, or it is that of the block.
    if ((!before.empty() && word.ends_with(before)) || isLetterWithDigits(word, "Nn")) {
        return;
    }
    const std::string_view whole(word.data(), word.size() + key.size());
    if (isPoint && isLetterWithDigits(word, "GMgm")) {
        if (key.size() > 1 && isDigitByte(key[1])) {
            keep(Warning::Kind::kFractionBehindCode, whole, fragment);
        }
        return;
    }
    keep(Warning::Kind::kTextBehindNumber, whole, fragment);
}

// The place of the key where a number or a bracket ends in front of it.
std::size_t RestScan::findBehindNumber(std::string_view key) const noexcept {
    for (std::size_t at = m_text.find(key); at != std::string_view::npos;
         at = m_text.find(key, at + 1)) {
        if (at > 0 && (isNumberByte(m_text[at - 1]) || m_text[at - 1] == ')')) {
            return at;
        }
    }
    return std::string_view::npos;
}
