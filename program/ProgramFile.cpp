#include "program/ProgramFile.h"

#include "program/holdsProgramWord.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "text/ProgramFrame.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

ProgramFile::ProgramFile(std::string text, std::string name, LineParser& parser)
    : m_text(std::move(text)), m_name(std::move(name)), m_parser(parser) {
    splitLines();
    findFrame();
    m_read.resize(m_lines.size());
    findParts();
}

void ProgramFile::splitLines() {
    std::string_view rest = m_text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        line = line.substr(0, line.find('\0'));
        m_lines.push_back(trimmed(line));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

bool ProgramFile::isCutAtNul(long line) const noexcept {
    const std::string_view text = textOf(line);
    const char* behind = text.data() + text.size();
    const char* const end = m_text.data() + m_text.size();
    while (behind != end && (*behind == ' ' || *behind == '\t' || *behind == '\r')) {
        ++behind;
    }
    return behind != end && *behind == '\0';
}

void ProgramFile::findFrame() {
    if (m_parser.rules().frames.empty()) {
        return;
    }
    ProgramFrame frame;
    ProgramLine line;
    bool isDecided = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (isDecided && !mayBegin(m_lines[i], m_parser.rules().frames)) {
            continue;
        }
        m_parser.read(m_lines[i], line);
        switch (frame.accept(
            line.text, !isDecided && holdsProgramWord(line, m_parser.grammar().vocabulary()))) {
        case ProgramFrame::Answer::kOpens:
            m_begin = static_cast<long>(i) + 1;
            isDecided = true;
            break;
        case ProgramFrame::Answer::kEnds:
            m_lines.resize(i);
            return;
        case ProgramFrame::Answer::kBlock:
            isDecided = true;
            break;
        case ProgramFrame::Answer::kUndecided:
            break;
        }
    }
}

bool ProgramFile::mayBegin(std::string_view line,
                           const std::vector<std::string>& texts) const noexcept {
    const std::size_t first = line.find_first_not_of(" \t/0123456789");
    return first != std::string_view::npos &&
           std::ranges::any_of(texts, [&](const std::string& text) {
               return !text.empty() &&
                      (text.front() == line[first] ||
                       (m_parser.rules().anyCase && text.front() == (line[first] & ~('a' - 'A'))));
           });
}

void ProgramFile::findParts() {
    m_parts.push_back({{}, m_begin, lineCount()});
    const auto& names = m_parser.rules().programNames;
    if (names.empty()) {
        return;
    }
    bool isBeforeFirst = true; // nothing that counts stands in the part so far
    BlockText text;
    for (long i = m_begin; i < lineCount(); ++i) {
        const std::string_view line = textOf(i);
        if (line.empty() || (!isBeforeFirst && !mayBegin(line, names))) {
            continue;
        }
        m_parser.readText(line.substr(0, LineParser::kMostBytes), text);
        if (text.isProgramName) {
            if (!isBeforeFirst) {
                m_parts.back().end = i;
                m_parts.push_back({{}, i, lineCount()});
            }
            m_parts.back().name = text.programName;
        }
        isBeforeFirst = isBeforeFirst && !text.isProgramName && text.words.empty();
    }
}

const ProgramFile::Part& ProgramFile::partOf(long line) const noexcept {
    const auto behind = std::ranges::upper_bound(m_parts, line, {}, &Part::first);
    return behind == m_parts.begin() ? *behind : *std::prev(behind);
}

const ProgramLine& ProgramFile::line(long line) {
    std::unique_ptr<ProgramLine>& read = m_read[static_cast<std::size_t>(line)];
    if (read == nullptr) {
        m_parser.read(textOf(line), m_plain);
        if (m_plain.isPlain) {
            return m_plain;
        }
        read = std::make_unique<ProgramLine>(std::move(m_plain));
        m_plain = {};
    }
    return *read;
}

const ProgramIndex& ProgramFile::index() {
    if (!m_index) {
        m_index.emplace(*this);
    }
    return *m_index;
}

int readStream(std::FILE* file, std::string& text) {
    std::array<char, std::size_t{64} * 1024> buffer;
    text.clear();
    std::size_t count = 0;
    errno = 0;
    while ((count = std::fread(buffer.data(), 1, buffer.size(), file)) != 0) {
        text.append(buffer.data(), count);
    }
    return std::ferror(file) == 0 ? 0 : (errno != 0 ? errno : EIO);
}
