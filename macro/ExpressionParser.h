#pragma once

#include "macro/Expression.h"
#include "macro/MacroError.h"
#include "macro/TextCursor.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Reads expressions by the tables of a family. A text of any length and any bytes ends in an
/// expression or a failure: brackets, indices and calls nest at most kMostBrackets deep, and all
/// else is a loop over the text.
class ExpressionParser {
public:
    static constexpr int kMostBrackets = 100;

    /// `syntax` must outlive the parser and what it parses.
    explicit ExpressionParser(const ExpressionSyntax& syntax) noexcept
        : m_syntax(syntax), m_cursor(cursorOn({})) {}

    /// Reads the whole of `text`; blanks around it do not count. Returns 0, or
    /// kExpressionUnreadable, kFunctionUnknown, kArgumentCount or, for a number that no double
    /// holds, kOutOfRange; `error` then has the column in the text, and `expression` is of no use.
    [[nodiscard]] int parse(std::string_view text, Reading reading, Expression& expression,
                            MacroError& error);
    /// Reads the longest expression that begins `text` and tells its length in `end`, without
    /// blanks behind it. An operator without its right side is a failure, not the end.
    [[nodiscard]] int parsePrefix(std::string_view text, Reading reading, Expression& expression,
                                  std::size_t& end, MacroError& error);
    /// The length of the function name that begins `text`, with its bracket behind it; 0 when there
    /// is none. Such a name wins over letters that are words of the dialect.
    [[nodiscard]] std::size_t functionNameLength(std::string_view text) const;

private:
    // Each of these is false after a failure, which then stands in m_error.
    [[nodiscard]] bool readReading(Reading reading);
    [[nodiscard]] bool readLevels(int loosest);
    [[nodiscard]] bool readOperand();
    [[nodiscard]] bool readPrimary();
    [[nodiscard]] bool readBracketed(char open, char close);
    [[nodiscard]] bool readCall(const MacroFunction& function);
    [[nodiscard]] bool readArguments(CallShape shape, std::size_t& count);
    [[nodiscard]] bool readNumber();
    [[nodiscard]] bool readQuotedNumber();
    [[nodiscard]] bool readText();
    [[nodiscard]] bool readWord();
    [[nodiscard]] bool readVariable(ExpressionStep::Kind kind);
    [[nodiscard]] bool readName(ExpressionStep::Kind kind);
    [[nodiscard]] bool enter(char open);
    [[nodiscard]] bool leave(char close);
    bool fail(MacroCode code, std::initializer_list<std::string_view> what); // false

    [[nodiscard]] TextCursor cursorOn(std::string_view text) const noexcept {
        return {text, m_syntax.anyCase, m_syntax.blanksInside};
    }
    void takeDigits(std::string& digits);
    void takeExponent(std::string& digits);
    [[nodiscard]] bool takeSpelling(TextCursor& cursor, std::string_view spelling) const;
    [[nodiscard]] std::string takeWord(TextCursor& cursor) const;
    [[nodiscard]] const BinaryOperator* takeOperator(TextCursor& cursor) const;
    [[nodiscard]] const MacroFunction* takeFunction(TextCursor& cursor) const;
    [[nodiscard]] bool isVariableAhead() const;
    [[nodiscard]] bool isAhead(TextCursor cursor, char c) const;

    const ExpressionSyntax& m_syntax;
    TextCursor m_cursor;
    Expression* m_expression = nullptr;
    MacroError* m_error = nullptr;
    int m_brackets = 0;
};
