#include "macro/ExpressionParser.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace {

using Kind = ExpressionStep::Kind;

bool isWordByte(char c) noexcept { return isLetterByte(c) || c == '_' || c == '$'; }

template<class Row>
std::uint32_t placeIn(std::span<const Row> table, const Row& row) noexcept {
    return static_cast<std::uint32_t>(&row - table.data());
}

// Two letters first, an underscore, or the mark of a system variable: X1 is a word of a block.
bool isVariableName(std::string_view word) noexcept {
    return word[0] == '_' || (word.size() > 1 && !isDigitByte(word[1]));
}

// The power of ten of the first digit that is not 0, plus one.
long decimalMagnitude(std::string_view digits) noexcept {
    const std::size_t exponent = digits.find('e');
    const std::string_view mantissa = digits.substr(0, exponent);
    const auto point = static_cast<long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first =
        static_cast<long>(std::min(mantissa.find_first_of("123456789"), mantissa.size()));
    long power = 0;
    if (exponent != std::string_view::npos) {
        const std::string_view text = digits.substr(exponent + 1);
        if (std::from_chars(text.data(), text.data() + text.size(), power).ec != std::errc{}) {
            power = text.starts_with('-') ? std::numeric_limits<int>::min()
                                          : std::numeric_limits<int>::max();
        }
    }
    return power + point - first;
}

// The nearest double; none for a number beyond all of them. One that is too small is 0.
std::optional<double> nearestDouble(std::string_view digits) noexcept {
    double number = 0.0;
    const char* const end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, number).ec == std::errc::result_out_of_range) {
        return decimalMagnitude(digits) > 0 ? std::nullopt : std::optional(0.0);
    }
    return number;
}

} // namespace

int ExpressionParser::parse(std::string_view text, Reading reading, Expression& expression,
                            MacroError& error) {
    std::size_t end = 0;
    if (const int code = parsePrefix(text, reading, expression, end, error); code != 0) {
        return code;
    }
    m_cursor.skipBlanks();
    if (!m_cursor.isAtEnd()) {
        fail(kExpressionUnreadable, {"the expression ends here"});
        return error.code();
    }
    return 0;
}

int ExpressionParser::parsePrefix(std::string_view text, Reading reading, Expression& expression,
                                  std::size_t& end, MacroError& error) {
    expression = Expression(m_syntax, reading);
    m_cursor = cursorOn(text);
    m_expression = &expression;
    m_error = &error;
    m_brackets = 0;
    if (!readReading(reading)) {
        return error.code();
    }
    end = m_cursor.end();
    return 0;
}

std::size_t ExpressionParser::functionNameLength(std::string_view text) const {
    TextCursor cursor = cursorOn(text);
    return takeFunction(cursor) == nullptr ? 0 : cursor.end();
}

bool ExpressionParser::readReading(Reading reading) {
    switch (reading) {
    case Reading::kOperand:
        return readOperand();
    case Reading::kVariable:
        m_cursor.skipBlanks();
        return readVariable(Kind::kLocate);
    case Reading::kExpression:
    case Reading::kCondition:
        break;
    }
    return readLevels(m_syntax.levels);
}

// An operand and what operators of the level `loosest` and tighter make of it.
bool ExpressionParser::readLevels(int loosest) {
    if (!readOperand()) {
        return false;
    }
    for (;;) {
        TextCursor behind = m_cursor;
        const BinaryOperator* const row = takeOperator(behind);
        if (row == nullptr) {
            return true;
        }
        const OperatorUse& use =
            m_expression->reading() == Reading::kCondition ? row->inCondition : row->inExpression;
        if (use.level > loosest) {
            return true;
        }
        m_cursor = behind;
        if (!readLevels(use.level - 1)) {
            return false;
        }
        m_expression->add({.kind = Kind::kBinary, .index = placeIn(m_syntax.binary, *row)}, -1);
    }
}

// A value behind any number of signs, of which the last one acts first.
bool ExpressionParser::readOperand() {
    std::vector<std::uint32_t> signs;
    for (bool found = true; found;) {
        m_cursor.skipBlanks();
        const auto row = std::ranges::find_if(m_syntax.unary, [&](const UnaryOperator& sign) {
            return takeSpelling(m_cursor, sign.spelling);
        });
        found = row != m_syntax.unary.end();
        if (found) {
            signs.push_back(placeIn(m_syntax.unary, *row));
        }
    }
    if (!readPrimary()) {
        return false;
    }
    for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign) {
        m_expression->add({.kind = Kind::kUnary, .index = *sign}, 0);
    }
    return true;
}

bool ExpressionParser::readPrimary() {
    const char c = m_cursor.peek();
    if (isDigitByte(c) || c == '.') {
        return readNumber();
    }
    if (c == m_syntax.open) {
        return readBracketed(m_syntax.open, m_syntax.close);
    }
    if (isVariableAhead()) {
        return readVariable(Kind::kLoad);
    }
    if (c != '\0' && c == m_syntax.number.quote) {
        return readQuotedNumber();
    }
    if (c != '\0' && c == m_syntax.textQuote) {
        return readText();
    }
    if (isWordByte(c)) {
        return readWord();
    }
    return fail(kExpressionUnreadable, {"a value is missing"});
}

bool ExpressionParser::readBracketed(char open, char close) {
    return enter(open) && readLevels(m_syntax.levels) && leave(close);
}

// A name of letters: a function, a constant or a variable.
bool ExpressionParser::readWord() {
    TextCursor behind = m_cursor;
    if (const MacroFunction* const function = takeFunction(behind); function != nullptr) {
        m_cursor = behind;
        return readCall(*function);
    }
    behind = m_cursor;
    std::string word = takeWord(behind);
    if (isAhead(behind, m_syntax.open)) {
        return fail(kFunctionUnknown, {"there is no function ", word});
    }
    const auto constant = std::ranges::find(m_syntax.constants, word, &NamedConstant::name);
    const bool isOperator = std::ranges::find(m_syntax.binary, word, &BinaryOperator::spelling) !=
                            m_syntax.binary.end();
    if (constant != m_syntax.constants.end()) {
        m_expression->addConstant(Value::Boolean(constant->truth));
    } else if (m_syntax.variable.bareNames && isVariableName(word) && !isOperator) {
        m_expression->addNamedVariable(Kind::kLoad, std::move(word));
    } else {
        return fail(kExpressionUnreadable, {"a value is missing"});
    }
    m_cursor = behind;
    return true;
}

bool ExpressionParser::readCall(const MacroFunction& function) {
    std::size_t count = 1;
    if (function.shape == CallShape::kVariable) {
        // The variable leaves what the function yields.
        return enter(m_syntax.open) && readVariable(Kind::kExists) && leave(m_syntax.close);
    }
    if (!readArguments(function.shape, count)) {
        return false;
    }
    if (count < function.fewest || count > function.most) {
        return fail(kArgumentCount,
                    {function.name, " has ", std::to_string(count), " arguments and wants ",
                     std::to_string(count < function.fewest ? function.fewest : function.most)});
    }
    m_expression->add({.kind = Kind::kCall,
                       .count = static_cast<std::uint32_t>(count),
                       .index = placeIn(m_syntax.functions, function)},
                      1 - static_cast<int>(count));
    return true;
}

bool ExpressionParser::readArguments(CallShape shape, std::size_t& count) {
    if (!enter(m_syntax.open)) {
        return false;
    }
    count = 0;
    if (!isAhead(m_cursor, m_syntax.close)) {
        do {
            if (!readLevels(m_syntax.levels)) {
                return false;
            }
            ++count;
            m_cursor.skipBlanks();
        } while (m_cursor.take(m_syntax.separator));
    }
    if (!leave(m_syntax.close)) {
        return false;
    }
    TextCursor behind = m_cursor;
    behind.skipBlanks();
    if (shape == CallShape::kList || count != 1 || !behind.take('/') ||
        !isAhead(behind, m_syntax.open)) {
        return true;
    }
    m_cursor = behind;
    ++count;
    return readBracketed(m_syntax.open, m_syntax.close);
}

void ExpressionParser::takeDigits(std::string& digits) {
    for (; isDigitByte(m_cursor.peek()); m_cursor.advance()) {
        digits += m_cursor.peek();
    }
}

void ExpressionParser::takeExponent(std::string& digits) {
    const TextCursor start = m_cursor;
    if (m_syntax.number.exponent.empty() || !m_cursor.take(m_syntax.number.exponent)) {
        return;
    }
    std::string exponent = "e";
    if (m_cursor.take('-')) {
        exponent += '-';
    } else {
        (void)m_cursor.take('+');
    }
    if (isDigitByte(m_cursor.peek())) {
        takeDigits(exponent);
        digits += exponent;
    } else {
        m_cursor = start;
    }
}

bool ExpressionParser::readNumber() {
    std::string digits;
    takeDigits(digits);
    if (m_cursor.take('.')) {
        digits += '.';
        takeDigits(digits);
    }
    if (digits == ".") {
        return fail(kExpressionUnreadable, {"a number has no digits"});
    }
    takeExponent(digits);
    const std::optional<double> number = nearestDouble(digits);
    if (!number) {
        return fail(kOutOfRange, {"the number is too large"});
    }
    m_expression->addConstant(Value::Real(*number));
    return true;
}

bool ExpressionParser::readQuotedNumber() {
    m_cursor.advance();
    int base = 0;
    if (m_cursor.take('H')) {
        base = 16;
    } else if (m_cursor.take('B')) {
        base = 2;
    } else {
        return fail(kExpressionUnreadable, {"H or B is missing"});
    }
    std::string digits;
    for (; m_cursor.peek() != m_syntax.number.quote && !m_cursor.isAtEnd(); m_cursor.advance()) {
        digits += m_cursor.peek();
    }
    std::int64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, number, base);
    if (error == std::errc::invalid_argument || behind != end || digits.starts_with('-') ||
        !m_cursor.take(m_syntax.number.quote)) {
        return fail(kExpressionUnreadable, {"the number is not complete"});
    }
    if (error != std::errc{}) {
        return fail(kOutOfRange, {"the number is too large"});
    }
    m_expression->addConstant(Value::Integer(number));
    return true;
}

bool ExpressionParser::readText() {
    m_cursor.advance();
    std::string text;
    for (; m_cursor.peek() != m_syntax.textQuote; m_cursor.advance()) {
        if (m_cursor.isAtEnd()) {
            return fail(kExpressionUnreadable, {"the text has no end"});
        }
        text += m_cursor.peekRaw();
    }
    m_cursor.advance();
    m_expression->addConstant(Value::Text(text));
    return true;
}

bool ExpressionParser::isVariableAhead() const {
    const VariableSpelling& spelling = m_syntax.variable;
    TextCursor behind = m_cursor;
    return behind.take(spelling.mark) && (spelling.indexIsOperand || isDigitByte(behind.peek()) ||
                                          behind.peek() == spelling.indexOpen);
}

bool ExpressionParser::readVariable(ExpressionStep::Kind kind) {
    const VariableSpelling& spelling = m_syntax.variable;
    m_cursor.skipBlanks();
    if (!isVariableAhead()) {
        TextCursor behind = m_cursor;
        std::string word = takeWord(behind);
        if (!spelling.bareNames || word.empty() || !isVariableName(word)) {
            return fail(kExpressionUnreadable, {"a variable is missing"});
        }
        m_cursor = behind;
        m_expression->addNamedVariable(kind, std::move(word));
        return true;
    }
    m_cursor.advance();
    if (m_cursor.take(spelling.nameOpen)) {
        return readName(kind);
    }
    if (spelling.indexIsOperand) {
        // An index may have an index, so it counts as a bracket.
        if (++m_brackets > kMostBrackets || !readOperand()) {
            return m_brackets > kMostBrackets
                       ? fail(kExpressionUnreadable, {"too many brackets are nested"})
                       : false;
        }
        --m_brackets;
    } else if (isDigitByte(m_cursor.peek())) {
        std::string digits;
        takeDigits(digits);
        m_expression->addConstant(
            Value::Real(nearestDouble(digits).value_or(std::numeric_limits<double>::max())));
    } else if (!readBracketed(spelling.indexOpen, spelling.indexClose)) {
        return false;
    }
    m_expression->addVariable(kind);
    return true;
}

bool ExpressionParser::readName(ExpressionStep::Kind kind) {
    std::string name;
    for (; m_cursor.peek() != m_syntax.variable.nameClose; m_cursor.advance()) {
        if (m_cursor.isAtEnd()) {
            return fail(kExpressionUnreadable, {"the name has no end"});
        }
        name += m_cursor.peek();
    }
    if (name.empty()) {
        return fail(kExpressionUnreadable, {"the name is empty"});
    }
    m_cursor.advance();
    m_expression->addNamedVariable(kind, std::move(name));
    return true;
}

bool ExpressionParser::enter(char open) {
    m_cursor.skipBlanks();
    if (!m_cursor.take(open)) {
        return fail(kExpressionUnreadable, {"\"", std::string_view(&open, 1), "\" is missing"});
    }
    return ++m_brackets <= kMostBrackets ||
           fail(kExpressionUnreadable, {"too many brackets are nested"});
}

bool ExpressionParser::leave(char close) {
    m_cursor.skipBlanks();
    --m_brackets;
    return m_cursor.take(close) ||
           fail(kExpressionUnreadable, {"\"", std::string_view(&close, 1), "\" is missing"});
}

bool ExpressionParser::fail(MacroCode code, std::initializer_list<std::string_view> what) {
    m_error->set(code, "ExpressionParser", what, m_cursor.column());
    return false;
}

// Where blanks part words, a name of letters must end where the word ends.
bool ExpressionParser::takeSpelling(TextCursor& cursor, std::string_view spelling) const {
    if (cursor.peek() != spelling.front()) { // of most rows that are tried
        return false;
    }
    TextCursor behind = cursor;
    if (!behind.take(spelling)) {
        return false;
    }
    const char next = behind.peek();
    if (!m_syntax.blanksInside && isLetterByte(spelling.back()) &&
        (isWordByte(next) || isDigitByte(next))) {
        return false;
    }
    cursor = behind;
    return true;
}

std::string ExpressionParser::takeWord(TextCursor& cursor) const {
    std::string word;
    for (char c = cursor.peek();
         isLetterByte(c) ||
         (!m_syntax.blanksInside && (isWordByte(c) || (isDigitByte(c) && !word.empty())));
         c = cursor.peek()) {
        word += c;
        cursor.advance();
    }
    return word;
}

// The operator with the longest spelling, behind blanks; `cursor` stays when there is none.
const BinaryOperator* ExpressionParser::takeOperator(TextCursor& cursor) const {
    TextCursor start = cursor;
    start.skipBlanks();
    const BinaryOperator* longest = nullptr;
    for (const BinaryOperator& row : m_syntax.binary) {
        TextCursor behind = start;
        if ((longest == nullptr || row.spelling.size() > longest->spelling.size()) &&
            takeSpelling(behind, row.spelling)) {
            longest = &row;
            cursor = behind;
        }
    }
    return longest;
}

// The function whose name and bracket stand here; `cursor` is then before the bracket.
const MacroFunction* ExpressionParser::takeFunction(TextCursor& cursor) const {
    for (const MacroFunction& row : m_syntax.functions) {
        TextCursor behind = cursor;
        if (takeSpelling(behind, row.name) && isAhead(behind, m_syntax.open)) {
            cursor = behind;
            return &row;
        }
    }
    return nullptr;
}

bool ExpressionParser::isAhead(TextCursor cursor, char c) const {
    cursor.skipBlanks();
    return cursor.peek() == c && !cursor.isAtEnd();
}
