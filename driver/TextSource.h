#pragma once

#include "driver/LineSource.h"
#include "program/Vocabulary.h"
#include "text/ProgramFrame.h"
#include "text/TextReader.h"

#include <deque>
#include <string>

/// The blocks of a program that is read by rules of its text: a line of the file each, without
/// what is no word of it. What stands outside of the program's frame, and marked blocks while the
/// operator's switch is on, are no blocks. Needs constant memory.
class TextSource final : public BlockSource {
public:
    /// All three are the caller's and must outlive the source. Throws std::bad_alloc.
    TextSource(std::FILE* file, const TextRules& rules, const Vocabulary& vocabulary)
        : m_lines(file), m_rules(rules), m_vocabulary(vocabulary), m_reader(rules) {}

    [[nodiscard]] bool Next(Block& block) override;
    [[nodiscard]] int Code() const noexcept override { return m_lines.Code(); }
    [[nodiscard]] Failure LastFailure() const noexcept override { return m_lines.LastFailure(); }
    [[nodiscard]] const BlockText* Text() const noexcept override { return &m_text; }

private:
    // So many lines before the frame are kept until it opens, or a word tells that it does not.
    static constexpr std::size_t kMostUndecided = 1000;

    struct KeptLine {
        std::string line;
        BlockText text;
        Block::Place place;
    };

    void findFrame();
    [[nodiscard]] bool readLine();
    [[nodiscard]] ProgramFrame::Answer askFrame();
    void give(Block& block, std::string_view line, Block::Place place);

    LineSource m_lines;
    const TextRules& m_rules;
    const Vocabulary& m_vocabulary;
    TextReader m_reader;
    ProgramFrame m_frame;
    std::deque<KeptLine> m_kept; // to be given before the line that was read last
    Block m_line;
    BlockText m_text; // of that line, then of the block given last
    long m_number = 0;
    bool m_hasBegun = false;
    bool m_isInside = false;      // the frame is open, or a word was read
    bool m_isAtEnd = false;       // the frame is closed
    bool m_isLineLeftOut = false; // further pieces of that line are none, either
    bool m_isLineName = false;    // nor do they hold words
};
