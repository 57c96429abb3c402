#include "program/Grammar.h"

#include "program/HashGrammar.h"
#include "program/OWordGrammar.h"
#include "program/RParameterGrammar.h"
#include "program/programCodes.h"
#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <charconv>

namespace {

// Words whose numbers are whole in every family.
constexpr std::string_view kWholeAddresses = "GMTNHDOL";

bool isNumberByte(char c) noexcept { return isDigitByte(c) || c == '.'; }

// What can follow the number of a word only in an expression without its brackets.
constexpr std::string_view kOperators = "+-*/[]<>^";

// Whether a piece of text is more than blanks and, as the first one, a block number.
bool holdsText(const WordsStatement& statement, const WordPiece& piece) noexcept {
    const bool isFirst = &piece == &statement.pieces.front();
    return piece.text.find_first_not_of(isFirst ? " N0123456789" : " ") != std::string::npos;
}

// Whether nothing stands beside the assignments.
bool isSilent(const WordsStatement& statement) noexcept {
    return std::ranges::all_of(statement.pieces, [&](const WordPiece& piece) {
        return piece.kind == WordPiece::Kind::kAssignment ||
               (piece.kind == WordPiece::Kind::kText && !holdsText(statement, piece));
    });
}

} // namespace

std::size_t plainNumberLength(std::string_view text) noexcept {
    std::size_t end = 0;
    std::size_t digits = 0;
    std::size_t points = 0;
    for (; end < text.size() && isNumberByte(text[end]) && points < 2; ++end) {
        (text[end] == '.' ? points : digits) += 1;
    }
    if (points == 2) {
        --end; // the second point belongs to something else
    }
    return digits == 0 ? 0 : end;
}

std::unique_ptr<Grammar> Grammar::make(ProgramLanguage language, const Vocabulary& vocabulary) {
    switch (language) {
    case ProgramLanguage::kOWord:
        return std::make_unique<OWordGrammar>(vocabulary);
    case ProgramLanguage::kHash:
        return std::make_unique<HashGrammar>(vocabulary);
    case ProgramLanguage::kRParameter:
        return std::make_unique<RParameterGrammar>(vocabulary);
    case ProgramLanguage::kNone:
        break;
    }
    return nullptr;
}

void Grammar::read(ProgramLine& line) {
    line.statements.clear();
    line.condition.reset();
    line.blockNumber.reset();
    line.label.clear();
    line.code = 0;
    BlockCursor cursor(line.text.words, blanksPartWords());
    if (cursor.take('N')) {
        const std::string_view digits = cursor.takeDigits();
        long number = 0;
        if (!digits.empty() &&
            std::from_chars(digits.data(), digits.data() + digits.size(), number).ec ==
                std::errc{}) {
            line.blockNumber = number;
        } else {
            cursor.moveTo(0);
        }
    }
    line.isPlain = isPlainBlock(cursor.rest());
    if (const std::optional<std::string> alarm = alarmIn(line.text.comments)) {
        line.isPlain = false;
        line.statements.emplace_back(AlarmStatement{*alarm});
        return;
    }
    if (line.isPlain) {
        return;
    }
    if (!readBlock(cursor, line)) {
        line.statements.clear();
        line.condition.reset();
        line.code = returnCodeOf(m_error.code());
        line.error = m_error;
    }
}

// Letters with a number each, and none of them a statement: most blocks, which need no more.
bool Grammar::isPlainBlock(std::string_view words) const noexcept {
    std::size_t at = 0;
    while (at < words.size()) {
        if (words[at] == ' ') {
            ++at;
            continue;
        }
        const char letter = words[at++];
        if (!isLetterByte(letter)) {
            return false;
        }
        if (at < words.size() && (words[at] == '-' || words[at] == '+')) {
            ++at;
        }
        const std::size_t length = plainNumberLength(words.substr(at));
        if (length == 0) {
            return false;
        }
        long number = 0;
        (void)std::from_chars(words.data() + at, words.data() + at + length, number);
        at += length;
        if (isStatement(letter, number) ||
            (at < words.size() && words[at] != ' ' && !isLetterByte(words[at]))) {
            return false;
        }
    }
    return true;
}

bool Grammar::readExpression(BlockCursor& cursor, Reading reading, Expression& expression) {
    std::size_t end = 0;
    if (m_parser.parsePrefix(cursor.rest(), reading, expression, end, m_error) != 0) {
        m_error.shiftColumn(cursor.position());
        return false;
    }
    cursor.advance(end);
    return true;
}

bool Grammar::readValue(BlockCursor& cursor, Reading reading, BlockWord& word) {
    cursor.skipBlanks();
    const std::string_view rest = cursor.rest();
    const std::size_t sign = rest.starts_with('-') || rest.starts_with('+') ? 1 : 0;
    const std::size_t digits = plainNumberLength(rest.substr(sign));
    const std::size_t length = digits == 0 ? 0 : sign + digits;
    const std::size_t first = cursor.position();
    Expression expression;
    if (length != 0 && reading == Reading::kOperand) {
        cursor.advance(length);
    } else if (!readExpression(cursor, reading, expression)) {
        return false;
    }
    if (cursor.position() - first == length) {
        double number = 0.0;
        (void)std::from_chars(rest.data() + sign, rest.data() + length, number);
        word.number = rest.starts_with('-') ? -number : number;
        word.text += rest.substr(0, length);
    } else {
        word.value = std::move(expression);
    }
    BlockCursor behind = cursor;
    behind.skipBlanks();
    return behind.peek() == '\0' || kOperators.find(behind.peek()) == std::string_view::npos ||
           fail(behind, "an expression needs brackets");
}

bool Grammar::readQuoted(BlockCursor& cursor, BlockWord& word) {
    const std::size_t end = cursor.rest().find('"', 1);
    if (end == std::string_view::npos) {
        return fail(cursor, "the text has no end");
    }
    word.text += cursor.rest().substr(0, end + 1);
    cursor.advance(end + 1);
    return true;
}

bool Grammar::expectEnd(BlockCursor& cursor) {
    return cursor.isAtEnd() || fail(cursor, "the statement ends here");
}

bool Grammar::fail(const BlockCursor& cursor, std::string_view what) {
    m_error.set(kExpressionUnreadable, "Grammar", {what}, cursor.position() + 1);
    return false;
}

bool Grammar::failFunction(const BlockCursor& cursor, std::string_view name) {
    m_error.set(kFunctionUnknown, "Grammar", {"there is no function ", name},
                cursor.position() + 1);
    return false;
}

Expression Grammar::expressionOf(const BlockWord& word) const {
    if (word.value) {
        return *word.value;
    }
    Expression constant(m_syntax, Reading::kOperand);
    constant.addConstant(Value::Real(word.number.value_or(0.0)));
    return constant;
}

void Grammar::addWords(const std::vector<BlockWord>& words, ProgramLine& line) const {
    WordsStatement statement;
    const auto appendText = [&statement](const std::string& text) {
        if (statement.pieces.empty() || statement.pieces.back().kind != WordPiece::Kind::kText) {
            statement.pieces.emplace_back();
        }
        statement.pieces.back().text += text;
    };
    for (const BlockWord& word : words) {
        if (!word.target && !word.value) {
            appendText(word.text);
            continue;
        }
        WordPiece& piece = statement.pieces.emplace_back();
        piece.value = *word.value;
        if (word.target) {
            piece.kind = WordPiece::Kind::kAssignment;
            piece.target = *word.target;
            continue;
        }
        const bool isWhole = word.letters.size() == 1 &&
                             kWholeAddresses.find(word.letters.front()) != std::string_view::npos;
        piece.kind = isWhole ? WordPiece::Kind::kWhole : WordPiece::Kind::kValue;
        piece.text = word.text;
        piece.behind = word.behind;
        piece.address = word.letters;
    }
    statement.isSilent = isSilent(statement);
    const bool isEmpty = std::ranges::none_of(statement.pieces, [&](const WordPiece& piece) {
        return piece.kind != WordPiece::Kind::kText || holdsText(statement, piece);
    });
    if (!isEmpty) {
        line.statements.emplace_back(std::move(statement));
    }
}
