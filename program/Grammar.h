#pragma once

#include "macro/ExpressionParser.h"
#include "program/BlockCursor.h"
#include "program/BlockWord.h"
#include "program/ProgramLine.h"
#include "program/Vocabulary.h"
#include "text/TextRules.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Turns the lines of one family into statements. What the families share in spelling stands here;
/// what a statement does is not the matter of a grammar.
class Grammar {
public:
    /// `syntax` and `vocabulary` must outlive the grammar and the lines that it read.
    Grammar(const ExpressionSyntax& syntax, const Vocabulary& vocabulary) noexcept
        : m_syntax(syntax), m_vocabulary(vocabulary), m_parser(syntax) {}
    Grammar(const Grammar&) = delete;
    Grammar& operator=(const Grammar&) = delete;
    virtual ~Grammar() = default;

    /// The grammar of a family that computes.
    [[nodiscard]] static std::unique_ptr<Grammar> make(ProgramLanguage language,
                                                       const Vocabulary& vocabulary);

    [[nodiscard]] const ExpressionSyntax& syntax() const noexcept { return m_syntax; }
    [[nodiscard]] const Vocabulary& vocabulary() const noexcept { return m_vocabulary; }
    /// Reads the words of `line.text` into the rest of `line`. A line that cannot be read keeps the
    /// failure for the moment when it is executed. Throws std::bad_alloc.
    void read(ProgramLine& line);

protected:
    // Each of these is false after a failure, which then stands in m_error.

    /// The statements behind the block number. The cursor is at the first of them.
    [[nodiscard]] virtual bool readBlock(BlockCursor& cursor, ProgramLine& line) = 0;
    /// Whether a letter with a number is more than a word to this family.
    [[nodiscard]] virtual bool isStatement(char letter, long number) const noexcept = 0;

    /// The text of a comment that ends the program; there is none in most families.
    [[nodiscard]] virtual std::optional<std::string>
    alarmIn(const std::vector<std::string>& /*comments*/) const {
        return std::nullopt;
    }

    [[nodiscard]] bool readExpression(BlockCursor& cursor, Reading reading, Expression& expression);
    [[nodiscard]] bool readExpression(BlockCursor& cursor, Reading reading,
                                      std::optional<Expression>& expression) {
        return readExpression(cursor, reading, expression.emplace());
    }
    /// A word whose value begins at the cursor, behind its letters. `reading` is how far an
    /// expression goes; a mere number is kept as it stands.
    [[nodiscard]] bool readValue(BlockCursor& cursor, Reading reading, BlockWord& word);
    /// A text in quotation marks, with them.
    [[nodiscard]] bool readQuoted(BlockCursor& cursor, BlockWord& word);
    /// Nothing but blanks may be left.
    [[nodiscard]] bool expectEnd(BlockCursor& cursor);
    bool fail(const BlockCursor& cursor, std::string_view what);         // false
    bool failFunction(const BlockCursor& cursor, std::string_view name); // false

    /// The value of a word as an expression, also of a mere number.
    [[nodiscard]] Expression expressionOf(const BlockWord& word) const;
    /// The words as a statement, when there is one; a block that names nothing but its number has
    /// none.
    void addWords(const std::vector<BlockWord>& words, ProgramLine& line) const;

    [[nodiscard]] const ExpressionParser& parser() const noexcept { return m_parser; }
    [[nodiscard]] bool blanksPartWords() const noexcept { return !m_syntax.blanksInside; }

private:
    [[nodiscard]] bool isPlainBlock(std::string_view words) const noexcept;

    const ExpressionSyntax& m_syntax;
    const Vocabulary& m_vocabulary;
    ExpressionParser m_parser;
    MacroError m_error;
};

/// The length of the number without a sign that begins `text`: digits, of which a point may part
/// two groups; 0 when there is none.
[[nodiscard]] std::size_t plainNumberLength(std::string_view text) noexcept;
