#pragma once

#include "program/Grammar.h"
#include "program/ProgramLine.h"
#include "text/TextReader.h"

#include <string_view>

/// Reads a line of text into a line of a program: first what is no word of it, then its statements.
class LineParser {
public:
    static constexpr std::size_t kMostBytes = 64 * 1024; ///< of a line

    /// `rules` must outlive the parser.
    LineParser(const TextRules& rules, std::unique_ptr<Grammar> grammar) noexcept
        : m_rules(rules), m_reader(rules), m_grammar(std::move(grammar)) {}

    /// Throws std::bad_alloc.
    void read(std::string_view text, ProgramLine& line);
    /// Only what is no word of it.
    void readText(std::string_view text, BlockText& block) const { m_reader.read(text, block); }

    [[nodiscard]] const TextRules& rules() const noexcept { return m_rules; }
    [[nodiscard]] Grammar& grammar() noexcept { return *m_grammar; }

private:
    const TextRules& m_rules;
    TextReader m_reader;
    std::unique_ptr<Grammar> m_grammar;
};
