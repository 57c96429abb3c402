#include "text/TextReader.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

namespace {

std::string_view trimmedText(std::string_view text) noexcept {
    while (!text.empty() && isBlankByte(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlankByte(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// The length of the longest of `marks` at the start of `text`; 0 when none stands there.
std::size_t markLength(const std::vector<std::string>& marks, std::string_view text) noexcept {
    std::size_t length = 0;
    for (const std::string& mark : marks) {
        if (text.starts_with(mark)) {
            length = std::max(length, mark.size());
        }
    }
    return length;
}

// Whether blanks behind (before) a byte mean nothing, whatever stands on the other side.
constexpr bool holdsBothSides(char c) noexcept {
    return c == '+' || c == '-' || c == '*' || c == '/' || c == '=' || c == '[' || c == ',' ||
           c == ':';
}

constexpr bool holdsBehind(char c) noexcept { return holdsBothSides(c) || c == '#' || c == '('; }

constexpr bool holdsBefore(char c) noexcept {
    return holdsBothSides(c) || c == ']' || c == ')' || c == '(';
}

// The first of the steps: one pass over the line that takes comments out, makes capitals, and drops
// blanks. What it writes is never longer than the line, and every byte is looked at once.
class Cleaner {
public:
    Cleaner(const TextRules& rules, const std::array<bool, 256>& isSpecial, std::string_view line,
            BlockText& text)
        : m_rules(rules), m_isSpecial(isSpecial), m_line(line), m_text(text),
          m_tracksNames(rules.ignoresBlanks && rules.language == ProgramLanguage::kRParameter) {
        m_text.words.resize(line.size());
        m_begin = m_out = m_text.words.data();
    }

    void run() {
        while (m_at < m_line.size()) {
            if (m_isInName || isSpecial(m_line[m_at])) {
                takeSpecial(m_line[m_at]);
            } else if (m_hasBlank || m_tracksNames) {
                append(folded(m_line[m_at++]));
            } else {
                takePlain();
            }
        }
        m_text.words.resize(static_cast<std::size_t>(m_out - m_begin));
    }

private:
    [[nodiscard]] bool isSpecial(char c) const noexcept {
        return m_isSpecial[static_cast<unsigned char>(c)];
    }

    [[nodiscard]] char folded(char c) const noexcept {
        return m_rules.anyCase ? toUpperByte(c) : c;
    }

    // Most bytes pass here. What is written could be anything to the compiler, so the loop keeps to
    // its own variables.
    void takePlain() noexcept {
        const bool anyCase = m_rules.anyCase;
        const bool* const isSpecialByte = m_isSpecial.data();
        const char* in = m_line.data() + m_at;
        const char* const end = m_line.data() + m_line.size();
        char* out = m_out;
        for (; in != end && !isSpecialByte[static_cast<unsigned char>(*in)]; ++in) {
            *out++ = anyCase ? toUpperByte(*in) : *in;
        }
        m_out = out;
        m_at = static_cast<std::size_t>(in - m_line.data());
    }

    void takeSpecial(char c) {
        const bool isBlank = isBlankByte(c) && m_rules.ignoresBlanks && !m_isInName;
        if (isBlank) { // no comment begins with one
            m_hasBlank = true;
            ++m_at;
        } else if (takeComment()) {
            m_isInName = false;
        } else if (m_isInName) {
            *m_out++ = c;
            m_isInName = c != '>';
            ++m_at;
        } else if (c == '"') {
            takeQuotation();
        } else {
            append(folded(c));
            m_isInName = c == '<' && beginsName();
            ++m_at;
        }
    }

    bool takeComment() {
        const std::string_view rest = m_line.substr(m_at);
        const bool isLong = !m_rules.commentStart.empty() && rest.starts_with(m_rules.commentStart);
        const std::size_t lineMark = markLength(m_rules.lineComments, rest);
        if (isLong && m_rules.commentStart.size() >= lineMark) {
            takeLongComment();
        } else if (lineMark > 0) {
            keepComment(rest.substr(lineMark));
            m_at = m_line.size();
        } else {
            return false;
        }
        return true;
    }

    // The end may overlap the start ("(*)" for "(*" and "*)"), but it never is the start itself.
    void takeLongComment() {
        const std::size_t begin = m_at + m_rules.commentStart.size();
        std::size_t end = std::string_view::npos;
        if (!m_rules.commentEnd.empty()) {
            end = m_line.find(m_rules.commentEnd, m_at);
            end = end == m_at ? m_line.find(m_rules.commentEnd, begin) : end;
            m_text.hasOpenComment = end == std::string_view::npos;
        }
        if (end == std::string_view::npos) {
            keepComment(m_line.substr(begin));
            m_at = m_line.size();
            return;
        }
        keepComment(m_line.substr(begin, std::max(begin, end) - begin));
        m_at = end + m_rules.commentEnd.size();
    }

    void keepComment(std::string_view comment) {
        comment = trimmedText(comment);
        if (!comment.empty()) {
            m_text.comments.emplace_back(comment);
        }
    }

    void takeQuotation() {
        const std::size_t close = m_line.find('"', m_at + 1);
        const std::size_t end = close == std::string_view::npos ? m_line.size() : close + 1;
        append('"');
        m_out = std::copy(m_line.begin() + m_at + 1, m_line.begin() + end, m_out);
        m_at = end;
    }

    void append(char c) noexcept {
        if (m_hasBlank && m_out != m_begin && isBlankNeeded(m_out[-1], c)) {
            *m_out++ = ' ';
        }
        m_hasBlank = false;
        if (m_tracksNames) {
            noteName(c);
        }
        *m_out++ = c;
    }

    // Blanks part words and names. They mean nothing inside a number, in front of what belongs to
    // the word before it, and beside operators and brackets.
    [[nodiscard]] bool isBlankNeeded(char before, char behind) const noexcept {
        if (isPoint(before) || isPoint(behind)) {
            return !isDigitByte(behind) && !isPoint(behind);
        }
        if (holdsBehind(before) || holdsBefore(behind)) {
            return false;
        }
        if (isDigitByte(behind)) {
            const bool isPart = isLetterByte(before) || isDigitByte(before);
            return !isPart || m_isName;
        }
        const bool isValue =
            behind == '#' || (behind == '<' && m_rules.language == ProgramLanguage::kOWord);
        return !(isValue && isLetterByte(before));
    }

    [[nodiscard]] bool isPoint(char c) const noexcept {
        return c == '.' || (c == m_rules.separator && c != '\0');
    }

    // Two letters or an underscore begin a name, which digits then belong to.
    void noteName(char c) noexcept {
        const char before = m_out == m_begin ? '\0' : m_out[-1];
        if (isLetterByte(c) || c == '_') {
            m_isName = c == '_' || isLetterByte(before) || (m_isName && isNameByte(before));
        } else if (!isDigitByte(c)) {
            m_isName = false;
        }
    }

    // Where "<" compares, it is no bracket of names.
    [[nodiscard]] bool beginsName() const noexcept {
        return m_rules.language == ProgramLanguage::kOWord ||
               (m_out - m_begin > 1 && m_out[-2] == '#');
    }

    const TextRules& m_rules;
    const std::array<bool, 256>& m_isSpecial;
    std::string_view m_line;
    BlockText& m_text;
    char* m_begin; // of the words
    char* m_out;   // behind what is written of them
    std::size_t m_at = 0;
    bool m_tracksNames;      // whether blanks behind names matter
    bool m_hasBlank = false; // dropped so far, in front of what comes next
    bool m_isInName = false; // between "<" and ">"
    bool m_isName = false;   // what was written last belongs to a name of two letters or more
};

void trimWords(std::string& words) {
    const std::string_view inner = trimmedText(words);
    const auto begin = static_cast<std::size_t>(inner.data() - words.data());
    words.erase(begin + inner.size());
    if (begin > 0) {
        words.erase(0, begin);
    }
}

void dropBlockEnds(const std::vector<std::string>& ends, std::string& words) {
    const auto isEnd = [&](const std::string& end) { return !end.empty() && words.ends_with(end); };
    for (auto end = std::ranges::find_if(ends, isEnd); end != ends.end();
         end = std::ranges::find_if(ends, isEnd)) {
        words.erase(words.size() - end->size());
        words.erase(words.find_last_not_of(" \t") + 1);
    }
}

std::size_t skipWhile(std::string_view text, std::size_t from, auto belongs) noexcept {
    while (from < text.size() && belongs(text[from])) {
        ++from;
    }
    return from;
}

// The end of the block number and the blanks behind it; its fraction ("N56.78") is dropped. 0 when
// the block has none.
std::size_t endOfBlockNumber(const TextRules& rules, std::string& words) {
    const std::string& address = rules.recordNumber;
    if (address.empty() || !words.starts_with(address)) {
        return 0;
    }
    const std::size_t end = skipWhile(words, address.size(), isDigitByte);
    if (end == address.size()) {
        return 0;
    }
    if (end < words.size() && words[end] == '.') {
        words.erase(end, skipWhile(words, end + 1, isDigitByte) - end);
    }
    return skipWhile(words, end, isBlankByte);
}

bool takeSkipMark(const TextRules& rules, std::string& words, std::size_t at) {
    const std::size_t length = markLength(rules.skipMarks, std::string_view(words).substr(at));
    if (length == 0) {
        return false;
    }
    std::size_t end = at + length;
    end += end < words.size() && isDigitByte(words[end]) ? 1 : 0;
    end = skipWhile(words, end, isBlankByte);
    words.erase(at, end - at);
    if (at == words.size()) {
        words.erase(words.find_last_not_of(" \t") + 1);
    } else if (at > 0 && !isBlankByte(words[at - 1])) {
        words.insert(at, 1, ' '); // it parts the number from what follows
    }
    return true;
}

std::string_view firstWord(std::string_view text) noexcept {
    return text.substr(0, text.find_first_of(" \t([,;"));
}

// The name that `words` give the program by this mark; empty when they do not.
std::string_view nameBy(std::string_view mark, std::string_view words) noexcept {
    if (mark.empty() || !words.starts_with(mark)) {
        return {};
    }
    const std::string_view behind = words.substr(mark.size());
    if (behind.empty()) {
        return {};
    }
    if (mark.size() == 1) {
        const std::size_t end = skipWhile(behind, 0, isDigitByte);
        return end == 0 || behind.substr(end).starts_with('=') ? std::string_view()
                                                               : words.substr(0, 1 + end);
    }
    if (std::ranges::all_of(mark, isLetterByte)) {
        return isBlankByte(behind.front()) ? firstWord(trimmedText(behind)) : std::string_view();
    }
    return isNameByte(behind.front()) ? firstWord(words) : std::string_view();
}

} // namespace

TextReader::TextReader(const TextRules& rules) noexcept : m_rules(rules) {
    const auto note = [this](char c) { m_isSpecial[static_cast<unsigned char>(c)] = true; };
    const auto noteFirst = [&](const std::string& text) {
        if (!text.empty()) {
            note(text.front());
        }
    };
    noteFirst(rules.commentStart);
    std::ranges::for_each(rules.lineComments, noteFirst);
    note('"');
    note('<');
    if (rules.ignoresBlanks) {
        note(' ');
        note('\t');
    }
}

void TextReader::read(std::string_view line, BlockText& text) const {
    text.comments.clear();
    text.programName.clear();
    text.isProgramName = text.isFrame = text.hasSkipMark = text.hasOpenComment = false;
    Cleaner(m_rules, m_isSpecial, line, text).run();
    trimWords(text.words);
    dropBlockEnds(m_rules.blockEnds, text.words);
    readStart(text);
}

// What a block can begin with.
void TextReader::readStart(BlockText& text) const {
    text.hasSkipMark = takeSkipMark(m_rules, text.words, 0);
    const std::size_t begin = endOfBlockNumber(m_rules, text.words);
    if (!text.hasSkipMark && begin > 0 && m_rules.language != ProgramLanguage::kOWord) {
        text.hasSkipMark = takeSkipMark(m_rules, text.words, begin);
    }
    const std::string_view words =
        trimmedText(std::string_view(text.words).substr(std::min(begin, text.words.size())));
    for (const std::string& mark : m_rules.programNames) {
        if (const std::string_view name = nameBy(mark, words); !name.empty()) {
            text.programName = name;
            text.isProgramName = true;
            return;
        }
    }
    text.isFrame = text.comments.empty() && !text.hasOpenComment && !text.hasSkipMark &&
                   std::ranges::find(m_rules.frames, text.words) != m_rules.frames.end();
}
