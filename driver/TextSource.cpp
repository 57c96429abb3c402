#include "driver/TextSource.h"

#include "driver/holdsWord.h"

#include <utility>

bool TextSource::Next(Block& block) {
    if (!std::exchange(m_hasBegun, true)) {
        findFrame();
    }
    if (!m_kept.empty()) {
        KeptLine kept = std::move(m_kept.front());
        m_kept.pop_front();
        m_text = std::move(kept.text);
        give(block, kept.line, kept.place);
        return true;
    }
    while (readLine()) {
        switch (askFrame()) {
        case ProgramFrame::Answer::kOpens:
            break;
        case ProgramFrame::Answer::kEnds:
            m_isAtEnd = true;
            break;
        case ProgramFrame::Answer::kBlock:
        case ProgramFrame::Answer::kUndecided:
            give(block, m_line.Text(), m_line.GetPlace());
            return true;
        }
    }
    return false;
}

// Keeps the first lines up to the first word; those before a frame that opens are passed over.
void TextSource::findFrame() {
    if (m_rules.frames.empty()) {
        return;
    }
    while (!m_isInside && m_kept.size() < kMostUndecided && readLine()) {
        if (askFrame() == ProgramFrame::Answer::kOpens) {
            m_kept.clear();
            return;
        }
        m_kept.push_back({std::string(m_line.Text()), m_text, m_line.GetPlace()});
    }
}

// Reads the next line that is not left out.
bool TextSource::readLine() {
    while (!m_isAtEnd && m_lines.Next(m_line)) {
        const bool isNewLine = !m_line.GetPlace().continuesLine;
        if (!isNewLine && m_isLineLeftOut) {
            continue;
        }
        m_reader.read(m_line.Text(), m_text);
        if (isNewLine) {
            m_isLineName = m_text.isProgramName;
            m_isLineLeftOut = m_rules.skipsBlocks && m_text.hasSkipMark;
        } else {
            m_text.isFrame = m_text.hasSkipMark = m_text.isProgramName = false;
        }
        if (m_isLineName) {
            m_text.words.clear();
        }
        if (!m_isLineLeftOut) {
            return true;
        }
    }
    return false;
}

ProgramFrame::Answer TextSource::askFrame() {
    const bool holds =
        !m_isInside && !m_rules.frames.empty() && holdsWord(m_text.words, m_vocabulary);
    const ProgramFrame::Answer answer = m_frame.accept(m_text, holds);
    m_isInside |= holds || answer == ProgramFrame::Answer::kOpens;
    return answer;
}

void TextSource::give(Block& block, std::string_view line, Block::Place place) {
    place.number = ++m_number;
    block.Begin(line, m_text.words, place);
}
