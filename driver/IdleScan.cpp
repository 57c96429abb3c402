#include "driver/IdleScan.h"

#include "driver/holdsWord.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t kMostBytes = 65'536;
constexpr std::size_t kMostLines = 100;
constexpr std::string_view kCommentMarks = "(;!\"'{*/";

bool isBlankOrEnd(char c) noexcept { return isBlankByte(c) || c == '\r' || c == '\0'; }

std::string_view trimmed(std::string_view line) noexcept {
    const auto* const first = std::ranges::find_if_not(line, isBlankOrEnd);
    return line.substr(static_cast<std::size_t>(first - line.begin()));
}

std::string capitals(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), toUpperByte);
    return result;
}

} // namespace

IdleScan::IdleScan(std::FILE* file) {
    if (file == nullptr || std::fseek(file, 0, SEEK_SET) != 0) {
        return;
    }
    m_isRead = true;
    m_text.resize(kMostBytes);
    m_text.resize(std::fread(m_text.data(), 1, m_text.size(), file));
    for (std::string_view rest = m_text; !rest.empty() && m_lines.size() < kMostLines;) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        if (const std::string_view line = trimmed(rest.substr(0, end)); !line.empty()) {
            m_lines.push_back(line);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

IdleCause IdleScan::Encoding() const noexcept {
    const std::string_view text = m_text;
    const bool hasMark = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
    const bool isWide = text.size() > 3 && ((text[0] == '\0') != (text[1] == '\0')) &&
                        (text[0] == '\0') == (text[2] == '\0') &&
                        (text[1] == '\0') == (text[3] == '\0');
    if (hasMark || isWide) {
        return IdleCause::kWideCharacters;
    }
    return text.starts_with("\x1F\x8B") ? IdleCause::kCompressed : IdleCause::kNone;
}

IdleCause IdleScan::CauseOf(const Seen& seen, const TextRules& rules,
                            const Vocabulary& vocabulary) const {
    if (m_isRead ? m_lines.empty() : !seen.hasText) {
        return IdleCause::kNone;
    }
    if (const IdleCause encoding = Encoding(); encoding != IdleCause::kNone) {
        return encoding;
    }
    if (!seen.hasMoreThanEnd && rules.language == ProgramLanguage::kOWord && definesSubprograms()) {
        return IdleCause::kOnlySubprograms;
    }
    if (!seen.hasWords || seen.hasOpenComment || beginsAsCommentsOnly()) {
        return IdleCause::kComments;
    }
    const auto isRead = [&](std::string_view line) { return holdsWord(line, vocabulary); };
    if (m_lines.empty() || std::ranges::any_of(m_lines, isRead)) {
        return IdleCause::kUnknown;
    }
    const bool isReadAsCapitals =
        std::ranges::any_of(m_lines, [&](auto line) { return isRead(capitals(line)); });
    return isReadAsCapitals && !rules.anyCase ? IdleCause::kSmallLetters : IdleCause::kNoWord;
}

bool IdleScan::definesSubprograms() const {
    return std::ranges::any_of(m_lines, [](std::string_view line) {
        const std::string text = capitals(line);
        return text.starts_with('O') && text.find("SUB") != std::string::npos;
    });
}

bool IdleScan::beginsAsCommentsOnly() const noexcept {
    return !m_lines.empty() && std::ranges::all_of(m_lines, [](std::string_view line) {
        return kCommentMarks.find(line.front()) != std::string_view::npos;
    });
}
