#include "program/RParameterGrammar.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <utility>

using LoopPart = LoopStatement::Part;
using LoopKind = LoopStatement::Kind;
using BranchPart = BranchStatement::Part;
using Direction = JumpStatement::Direction;

struct RParameterGrammar::Keyword {
    std::string_view text;
    bool (RParameterGrammar::*read)(BlockCursor& cursor, ProgramLine& line) = nullptr;
    std::optional<BranchPart> branch = std::nullopt; ///< without a reader of its own
    LoopPart loop = LoopPart::kBegin;                ///< without either
    LoopKind loopKind = LoopKind::kForever;
    bool hasCondition = false;
};

constexpr std::string_view kModalCall = "MCALL";

const RParameterGrammar::Keyword RParameterGrammar::kKeywords[] = {
    {.text = "IF", .read = &RParameterGrammar::readIf},
    {.text = "ELSE", .branch = BranchPart::kElse},
    {.text = "ENDIF", .branch = BranchPart::kEnd},
    {.text = "WHILE", .loopKind = LoopKind::kWhile, .hasCondition = true},
    {.text = "ENDWHILE", .loop = LoopPart::kEnd, .loopKind = LoopKind::kWhile},
    {.text = "FOR", .read = &RParameterGrammar::readFor},
    {.text = "ENDFOR", .loop = LoopPart::kEnd, .loopKind = LoopKind::kCounted},
    {.text = "LOOP"},
    {.text = "ENDLOOP", .loop = LoopPart::kEnd},
    {.text = "REPEAT", .read = &RParameterGrammar::readRepeat},
    {.text = "REPEATB", .read = &RParameterGrammar::readRepeatBlock},
    {.text = "UNTIL", .loop = LoopPart::kEnd, .loopKind = LoopKind::kUntil, .hasCondition = true},
    {.text = "CASE", .read = &RParameterGrammar::readCase},
    {.text = "DEF", .read = &RParameterGrammar::readDeclaration},
    {.text = "PROC", .read = &RParameterGrammar::readProcedure},
    {.text = kModalCall, .read = &RParameterGrammar::readModalCall},
    {.text = "CALL", .read = &RParameterGrammar::readCallByText},
    {.text = "SETAL", .read = &RParameterGrammar::readAlarm},
    {.text = "RET", .read = &RParameterGrammar::readReturn},
    {.text = "MSG", .read = &RParameterGrammar::passOver},
    {.text = "EXTERN", .read = &RParameterGrammar::passOver},
};

namespace {

struct JumpWord {
    std::string_view text;
    Direction direction;
    bool mayMiss = false;
};
constexpr JumpWord kJumpWords[] = {
    {"GOTO", Direction::kForwardFirst},
    {"GOTOF", Direction::kForward},
    {"GOTOB", Direction::kBackward},
    {"GOTOC", Direction::kForwardFirst, true},
};

struct TypeWord {
    std::string_view text;
    ValueType type;
};
constexpr TypeWord kTypeWords[] = {
    {"REAL", ValueType::kReal}, {"INT", ValueType::kInteger}, {"BOOL", ValueType::kBoolean},
    {"CHAR", ValueType::kText}, {"STRING", ValueType::kText}, {"AXIS", ValueType::kText},
};

// The texts that open a value in brackets; what they mean is the matter of the word.
constexpr std::string_view kValueBrackets[] = {"AC(", "IC(", "DC(", "ACP(", "ACN("};

bool isNameStart(std::string_view text) noexcept {
    return !text.empty() && (text[0] == '_' || text[0] == '$' ||
                             (isLetterByte(text[0]) && text.size() > 1 &&
                              (isLetterByte(text[1]) || text[1] == '_')));
}

bool isEquals(std::string_view text) noexcept {
    return text.starts_with('=') && !text.starts_with("==");
}

} // namespace

bool RParameterGrammar::isStatement(char letter, long number) const noexcept {
    return letter == 'L' || (letter == 'M' && number == 17);
}

bool RParameterGrammar::readBlock(BlockCursor& cursor, ProgramLine& line) {
    readLabel(cursor, line);
    for (const JumpWord& word : kJumpWords) {
        if (cursor.takeKeyword(word.text)) {
            JumpStatement jump = {.direction = word.direction, .mayMiss = word.mayMiss};
            if (!readJump(cursor, jump)) {
                return false;
            }
            line.statements.emplace_back(std::move(jump));
            return expectEnd(cursor);
        }
    }
    const auto* const keyword = std::ranges::find_if(
        kKeywords, [&](const Keyword& row) { return cursor.takeKeyword(row.text); });
    if (keyword == std::end(kKeywords)) {
        return readWords(cursor, line);
    }
    if (keyword->read != nullptr) {
        return (this->*keyword->read)(cursor, line);
    }
    if (keyword->branch) {
        line.statements.emplace_back(BranchStatement{.part = *keyword->branch});
        return expectEnd(cursor);
    }
    return readLoop(*keyword, cursor, line);
}

void RParameterGrammar::readLabel(BlockCursor& cursor, ProgramLine& line) const {
    const BlockCursor start = cursor;
    const std::string_view name = cursor.takeName();
    if (name.size() > 1 && cursor.take(':') && cursor.peek() != '=') {
        line.label = name;
    } else {
        cursor.moveTo(start.position());
    }
}

bool RParameterGrammar::readIf(BlockCursor& cursor, ProgramLine& line) {
    std::optional<Expression> condition;
    if (!readExpression(cursor, Reading::kCondition, condition)) {
        return false;
    }
    if (cursor.isAtEnd()) {
        line.statements.emplace_back(BranchStatement{.condition = std::move(condition)});
        return true;
    }
    for (const JumpWord& word : kJumpWords) {
        if (cursor.takeKeyword(word.text)) {
            JumpStatement jump = {.condition = std::move(condition),
                                  .target = {},
                                  .direction = word.direction,
                                  .mayMiss = word.mayMiss};
            if (!readJump(cursor, jump)) {
                return false;
            }
            line.statements.emplace_back(std::move(jump));
            return expectEnd(cursor);
        }
    }
    return fail(cursor, "a jump or the end of the block is missing");
}

bool RParameterGrammar::readJump(BlockCursor& cursor, JumpStatement& jump) {
    const std::string_view name = cursor.takeName();
    if (name.empty()) {
        return fail(cursor, "the label of the jump is missing");
    }
    jump.target.label = name;
    return true;
}

bool RParameterGrammar::readLoop(const Keyword& keyword, BlockCursor& cursor, ProgramLine& line) {
    LoopStatement loop = {.part = keyword.loop, .kind = keyword.loopKind};
    if (keyword.hasCondition && !readExpression(cursor, Reading::kCondition, loop.condition)) {
        return false;
    }
    line.statements.emplace_back(std::move(loop));
    return expectEnd(cursor);
}

bool RParameterGrammar::readFor(BlockCursor& cursor, ProgramLine& line) {
    LoopStatement loop = {.kind = LoopKind::kCounted};
    if (!readExpression(cursor, Reading::kVariable, loop.variable)) {
        return false;
    }
    if (!cursor.take('=')) {
        return fail(cursor, "\"=\" is missing");
    }
    if (!readExpression(cursor, Reading::kExpression, loop.condition)) {
        return false;
    }
    if (!cursor.takeKeyword("TO")) {
        return fail(cursor, "TO is missing");
    }
    if (!readExpression(cursor, Reading::kExpression, loop.last)) {
        return false;
    }
    line.statements.emplace_back(std::move(loop));
    return expectEnd(cursor);
}

// Without a label it is the begin of a loop that UNTIL ends.
bool RParameterGrammar::readRepeat(BlockCursor& cursor, ProgramLine& line) {
    if (cursor.isAtEnd()) {
        line.statements.emplace_back(LoopStatement{.kind = LoopKind::kUntil});
        return true;
    }
    RepeatStatement repeat;
    repeat.first = cursor.takeName();
    if (repeat.first.empty()) {
        return fail(cursor, "the label is missing");
    }
    BlockCursor behind = cursor;
    const std::string_view last = behind.takeName();
    behind.skipBlanks();
    if (!last.empty() && !(last[0] == 'P' && (last.size() == 1 || isDigitByte(last[1])))) {
        repeat.last = last;
        cursor.moveTo(behind.position());
    }
    if (!readTimes(cursor, repeat.times)) {
        return false;
    }
    line.statements.emplace_back(std::move(repeat));
    return expectEnd(cursor);
}

bool RParameterGrammar::readRepeatBlock(BlockCursor& cursor, ProgramLine& line) {
    RepeatStatement repeat = {.isBlockAlone = true};
    repeat.first = cursor.takeName();
    if (repeat.first.empty()) {
        return fail(cursor, "the label is missing");
    }
    if (!readTimes(cursor, repeat.times)) {
        return false;
    }
    line.statements.emplace_back(std::move(repeat));
    return expectEnd(cursor);
}

// "P3", "P=R1"; nothing is once.
bool RParameterGrammar::readTimes(BlockCursor& cursor, std::optional<Expression>& times) {
    cursor.skipBlanks();
    const std::string_view rest = cursor.rest();
    if (!rest.starts_with('P') || rest.size() < 2 ||
        !(isDigitByte(rest[1]) || rest[1] == '=' || rest[1] == ' ')) {
        return true;
    }
    cursor.advance(1);
    (void)cursor.take('=');
    return readExpression(cursor, Reading::kExpression, times);
}

bool RParameterGrammar::readCase(BlockCursor& cursor, ProgramLine& line) {
    ChoiceStatement choice;
    if (!readExpression(cursor, Reading::kExpression, choice.selector)) {
        return false;
    }
    if (!cursor.takeKeyword("OF")) {
        return fail(cursor, "OF is missing");
    }
    const auto readAlternative = [&](JumpStatement& jump) {
        const auto* const word = std::ranges::find_if(
            kJumpWords, [&](const JumpWord& row) { return cursor.takeKeyword(row.text); });
        if (word == std::end(kJumpWords)) {
            return fail(cursor, "a jump is missing");
        }
        jump.direction = word->direction;
        jump.mayMiss = word->mayMiss;
        return readJump(cursor, jump);
    };
    while (!cursor.isAtEnd()) {
        if (cursor.takeKeyword("DEFAULT")) {
            if (!readAlternative(choice.otherwise.emplace())) {
                return false;
            }
            break;
        }
        ChoiceStatement::Alternative& alternative = choice.alternatives.emplace_back();
        if (!readExpression(cursor, Reading::kOperand, alternative.value) ||
            !readAlternative(alternative.jump)) {
            return false;
        }
    }
    line.statements.emplace_back(std::move(choice));
    return expectEnd(cursor);
}

bool RParameterGrammar::readVariable(BlockCursor& cursor, ValueType type, bool needsType,
                                     DefineStatement::Parameter& variable) {
    variable.type = type;
    if (needsType) {
        if (cursor.takeKeyword("VAR")) {
            return fail(cursor, "parameters by reference are not converted");
        }
        const auto* const row = std::ranges::find_if(
            kTypeWords, [&](const TypeWord& word) { return cursor.takeKeyword(word.text); });
        if (row == std::end(kTypeWords)) {
            return fail(cursor, "a type is missing");
        }
        variable.type = row->type;
        if (cursor.take('[') && (cursor.takeDigits().empty() || !cursor.take(']'))) {
            return fail(cursor, "the length of the text is missing");
        }
    }
    variable.name = cursor.takeName();
    if (!isNameStart(variable.name)) {
        return fail(cursor, "a name is missing");
    }
    if (cursor.take('[')) {
        return fail(cursor, "variables with an index are not converted");
    }
    return !cursor.take('=') || readExpression(cursor, Reading::kExpression, variable.initial);
}

bool RParameterGrammar::readDeclaration(BlockCursor& cursor, ProgramLine& line) {
    DeclareStatement declare;
    bool isFirst = true;
    do {
        const ValueType type = isFirst ? ValueType::kReal : declare.variables.back().type;
        if (!readVariable(cursor, type, isFirst, declare.variables.emplace_back())) {
            return false;
        }
        isFirst = false;
    } while (cursor.take(','));
    line.statements.emplace_back(std::move(declare));
    return expectEnd(cursor);
}

// What follows the parameters says how the control shows the subprogram.
bool RParameterGrammar::readProcedure(BlockCursor& cursor, ProgramLine& line) {
    DefineStatement define;
    define.name = cursor.takeName();
    if (cursor.take('(') && !cursor.take(')')) {
        do {
            if (!readVariable(cursor, ValueType::kReal, true, define.parameters.emplace_back())) {
                return false;
            }
        } while (cursor.take(','));
        if (!cursor.take(')')) {
            return fail(cursor, "\")\" is missing");
        }
    }
    line.statements.emplace_back(std::move(define));
    return true;
}

bool RParameterGrammar::readModalCall(BlockCursor& cursor, ProgramLine& line) {
    const std::size_t begin = cursor.position() - kModalCall.size();
    const bool isEnd = cursor.isAtEnd();
    const std::string_view name = cursor.takeName();
    if (isEnd || vocabulary().isKnown(name)) {
        line.statements.emplace_back(ModalCallStatement{});
    }
    if (isEnd && !vocabulary().isKnown(kModalCall)) {
        return true;
    }
    if (isEnd || vocabulary().isKnown(name)) {
        // A cycle of the dialect, which the command model repeats itself.
        cursor.moveTo(begin);
        return readWords(cursor, line);
    }
    ModalCallStatement modal;
    if (name.empty()) {
        return fail(cursor, "the name of the subprogram is missing");
    }
    if (!readCall(cursor, name, modal.call.emplace())) {
        return false;
    }
    line.statements.emplace_back(std::move(modal));
    return expectEnd(cursor);
}

bool RParameterGrammar::readCallByText(BlockCursor& cursor, ProgramLine& line) {
    cursor.skipBlanks();
    BlockWord name;
    if (cursor.peek() != '"') {
        return fail(cursor, "the name of the subprogram is missing");
    }
    if (!readQuoted(cursor, name)) {
        return false;
    }
    CallStatement call;
    if (!readCall(cursor, std::string_view(name.text).substr(1, name.text.size() - 2), call)) {
        return false;
    }
    line.statements.emplace_back(std::move(call));
    return expectEnd(cursor);
}

bool RParameterGrammar::readAlarm(BlockCursor& cursor, ProgramLine& line) {
    line.statements.emplace_back(AlarmStatement{std::string(cursor.rest())});
    return true;
}

bool RParameterGrammar::readReturn(BlockCursor& cursor, ProgramLine& line) {
    line.statements.emplace_back(ReturnStatement{});
    return expectEnd(cursor);
}

bool RParameterGrammar::passOver(BlockCursor& /*cursor*/, ProgramLine& /*line*/) { return true; }

bool RParameterGrammar::readWords(BlockCursor& cursor, ProgramLine& line) {
    Block block = {.cursor = cursor, .line = line, .words = {}, .last = {}};
    if (line.blockNumber) {
        const std::string_view words = line.text.words;
        const std::size_t digits = words.find('N') + 1;
        block.words.emplace_back().text =
            words.substr(0, words.find_first_not_of(" 0123456789", digits));
    }
    for (;;) {
        const std::size_t first = cursor.position();
        if (cursor.isAtEnd()) {
            break;
        }
        if (cursor.position() != first) {
            block.words.emplace_back().text.assign(cursor.position() - first, ' ');
        }
        if (!readWord(block)) {
            return false;
        }
    }
    addWords(block.words, line);
    if (block.last) {
        line.statements.push_back(std::move(*block.last));
    }
    return true;
}

bool RParameterGrammar::isVariableBeforeEquals(BlockCursor cursor) const {
    if (cursor.peek() != 'R') {
        return false;
    }
    cursor.advance(1);
    return isDigitByte(cursor.peek()) || cursor.peek() == '[';
}

bool RParameterGrammar::readWord(Block& block) {
    BlockCursor& cursor = block.cursor;
    const std::size_t start = cursor.position();
    const char c = cursor.peek();
    BlockWord word;
    if (c == '"') {
        return readQuoted(cursor, block.words.emplace_back());
    }
    if (isVariableBeforeEquals(cursor)) {
        return readAssignment(block, start);
    }
    if (isNameStart(cursor.rest())) {
        if (c == '$') {
            return readAssignment(block, start);
        }
        const std::string_view name = cursor.takeName();
        word.text = word.letters = name;
        return readNamed(block, name, std::move(word));
    }
    const bool hasComma = c == ',' && cursor.rest().size() > 1 && isLetterByte(cursor.rest()[1]);
    if (!isLetterByte(c) && !hasComma) {
        if (std::string_view("()[]=<>+-*/").find(c) != std::string_view::npos) {
            return fail(cursor, "an address is missing");
        }
        block.words.emplace_back().text = c;
        cursor.advance(1);
        return true;
    }
    word.letters = cursor.rest().substr(0, hasComma ? 2 : 1);
    word.text = word.letters;
    cursor.advance(word.letters.size());
    return readAddressed(block, std::move(word));
}

bool RParameterGrammar::readAssignment(Block& block, std::size_t start) {
    BlockWord word;
    block.cursor.moveTo(start);
    if (!readExpression(block.cursor, Reading::kVariable, word.target)) {
        return false;
    }
    block.cursor.skipBlanks();
    if (!isEquals(block.cursor.rest())) {
        return fail(block.cursor, "\"=\" is missing");
    }
    block.cursor.advance(1);
    if (!readExpression(block.cursor, Reading::kExpression, word.value)) {
        return false;
    }
    block.words.push_back(std::move(word));
    return true;
}

// A word that a key knows, an assignment, or the call of a subprogram.
bool RParameterGrammar::readNamed(Block& block, std::string_view name, BlockWord word) {
    BlockCursor& cursor = block.cursor;
    const std::size_t start = cursor.position() - name.size();
    const bool isKnown = vocabulary().isKnown(name);
    BlockCursor behind = cursor;
    behind.skipBlanks();
    if (isEquals(behind.rest())) {
        return isKnown ? readAddressed(block, std::move(word)) : readAssignment(block, start);
    }
    if (behind.peek() == '[') {
        return fail(behind, "variables with an index are not converted");
    }
    if (isKnown) {
        if (behind.peek() == '(') {
            return readKnownCall(block, std::move(word));
        }
        block.words.push_back(std::move(word));
        return true;
    }
    CallStatement call;
    if (!readCall(cursor, name, call)) {
        return false;
    }
    if (block.last) {
        return fail(cursor, "a second call in one block");
    }
    block.last = std::move(call);
    return true;
}

// Behind the letters: a number, digits that belong to the address, or "=" and an expression.
bool RParameterGrammar::readAddressed(Block& block, BlockWord word) {
    BlockCursor& cursor = block.cursor;
    const std::size_t digits = plainNumberLength(cursor.rest());
    BlockCursor behind = cursor;
    behind.advance(digits);
    behind.skipBlanks();
    if (isEquals(behind.rest())) {
        const std::string_view number = cursor.rest().substr(0, digits);
        word.letters += number;
        word.text += number;
        cursor.moveTo(behind.position() + 1);
        cursor.skipBlanks();
        // Codes and tools are told by what stands directly behind their letter.
        if (word.letters != "G" && word.letters != "M" && word.letters != "T") {
            word.text += '=';
        }
        if (cursor.peek() == '"') {
            if (!word.text.ends_with('=')) {
                word.text += '=';
            }
            return readQuoted(cursor, word) && (block.words.push_back(std::move(word)), true);
        }
        return readBracketedValue(block, std::move(word));
    }
    if (digits != 0 && word.letters == "L" && !vocabulary().isKnown("L")) {
        const std::string name = "L" + std::string(cursor.rest().substr(0, digits));
        cursor.advance(digits);
        CallStatement call;
        if (block.last || !readCall(cursor, name, call)) {
            return block.last ? fail(cursor, "a second call in one block") : false;
        }
        block.last = std::move(call);
        return true;
    }
    const char next = cursor.peek();
    const bool hasValue = digits != 0 || next == '-' || next == '+';
    if (hasValue && !readValue(cursor, Reading::kOperand, word)) {
        return false;
    }
    if (word.isCode('M', 17)) {
        block.last = ReturnStatement{};
        return true;
    }
    block.words.push_back(std::move(word));
    return true;
}

bool RParameterGrammar::readBracketedValue(Block& block, BlockWord word) {
    BlockCursor& cursor = block.cursor;
    const auto* const bracket = std::ranges::find_if(
        kValueBrackets, [&](std::string_view text) { return cursor.rest().starts_with(text); });
    const bool hasBracket = bracket != std::end(kValueBrackets);
    if (hasBracket) {
        word.text += *bracket;
        cursor.advance(bracket->size());
    }
    if (!readValue(cursor, Reading::kExpression, word)) {
        return false;
    }
    if (hasBracket) {
        if (!cursor.take(')')) {
            return fail(cursor, "\")\" is missing");
        }
        (word.value ? word.behind : word.text) += ')';
    }
    block.words.push_back(std::move(word));
    return true;
}

// The brackets and commas stay, the values become numbers.
bool RParameterGrammar::readKnownCall(Block& block, BlockWord word) {
    BlockCursor& cursor = block.cursor;
    (void)cursor.take('(');
    word.text += '(';
    block.words.push_back(std::move(word));
    for (;;) {
        cursor.skipBlanks();
        BlockWord argument;
        if (cursor.peek() == '"') {
            if (!readQuoted(cursor, argument)) {
                return false;
            }
        } else if (cursor.peek() != ',' && cursor.peek() != ')' &&
                   !readValue(cursor, Reading::kExpression, argument)) {
            return false;
        }
        const bool isLast = !cursor.take(',');
        (argument.value ? argument.behind : argument.text) += isLast ? ')' : ',';
        block.words.push_back(std::move(argument));
        if (isLast) {
            return cursor.take(')') || fail(cursor, "\")\" is missing");
        }
    }
}

bool RParameterGrammar::readCall(BlockCursor& cursor, std::string_view name, CallStatement& call) {
    call.name = name;
    call.locals = CallStatement::Locals::kPlaces;
    if (cursor.take('(') && !cursor.take(')')) {
        do {
            CallStatement::Argument& argument = call.arguments.emplace_back();
            cursor.skipBlanks();
            if (cursor.peek() != ',' && cursor.peek() != ')' &&
                !readExpression(cursor, Reading::kExpression, argument.value)) {
                return false;
            }
        } while (cursor.take(','));
        if (!cursor.take(')')) {
            return fail(cursor, "\")\" is missing");
        }
    }
    return readTimes(cursor, call.times);
}
