#include "program/OWordGrammar.h"

#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <utility>

using LoopPart = LoopStatement::Part;
using LoopKind = LoopStatement::Kind;
using BranchPart = BranchStatement::Part;

struct OWordGrammar::Keyword {
    enum class Form { kSub, kEndSub, kCall, kReturn, kBranch, kLoop };

    std::string_view text;
    Form form;
    bool hasCondition = false;
    BranchPart branch = BranchPart::kIf;
    LoopPart loop = LoopPart::kBegin;
    LoopKind loopKind = LoopKind::kWhile;
};

// In the order in which they are tried: a longer one before its own begin.
const OWordGrammar::Keyword OWordGrammar::kKeywords[] = {
    {.text = "SUB", .form = Keyword::Form::kSub},
    {.text = "ENDSUB", .form = Keyword::Form::kEndSub},
    {.text = "CALL", .form = Keyword::Form::kCall},
    {.text = "RETURN", .form = Keyword::Form::kReturn},
    {.text = "IF", .form = Keyword::Form::kBranch, .hasCondition = true},
    {.text = "ELSEIF",
     .form = Keyword::Form::kBranch,
     .hasCondition = true,
     .branch = BranchPart::kElseIf},
    {.text = "ELSE", .form = Keyword::Form::kBranch, .branch = BranchPart::kElse},
    {.text = "ENDIF", .form = Keyword::Form::kBranch, .branch = BranchPart::kEnd},
    {.text = "WHILE", .form = Keyword::Form::kLoop, .hasCondition = true, .loop = LoopPart::kWhile},
    {.text = "ENDWHILE", .form = Keyword::Form::kLoop, .loop = LoopPart::kEnd},
    {.text = "DO", .form = Keyword::Form::kLoop, .loopKind = LoopKind::kDo},
    {.text = "REPEAT",
     .form = Keyword::Form::kLoop,
     .hasCondition = true,
     .loopKind = LoopKind::kTimes},
    {.text = "ENDREPEAT",
     .form = Keyword::Form::kLoop,
     .loop = LoopPart::kEnd,
     .loopKind = LoopKind::kTimes},
    {.text = "BREAK", .form = Keyword::Form::kLoop, .loop = LoopPart::kBreak},
    {.text = "CONTINUE", .form = Keyword::Form::kLoop, .loop = LoopPart::kContinue},
};

bool OWordGrammar::isStatement(char letter, long number) const noexcept {
    return letter == 'O' || (letter == 'M' && (number == 98 || number == 99));
}

std::optional<std::string> OWordGrammar::alarmIn(const std::vector<std::string>& comments) const {
    constexpr std::string_view kWord = "abort,";
    for (const std::string& comment : comments) {
        const bool isAlarm =
            comment.size() >= kWord.size() &&
            std::ranges::equal(kWord, comment.substr(0, kWord.size()), {}, {}, toLowerByte);
        if (isAlarm) {
            return std::string(trimmed(std::string_view(comment).substr(kWord.size())));
        }
    }
    return std::nullopt;
}

bool OWordGrammar::readBlock(BlockCursor& cursor, ProgramLine& line) {
    if (!cursor.take('O')) {
        std::vector<BlockWord> words(1);
        words.front().text = line.text.words.substr(0, cursor.position());
        return readWords(cursor, words) && addCodes(std::move(words), cursor, line);
    }
    OWord word;
    if (!readOWord(cursor, word)) {
        return false;
    }
    if (cursor.isAtEnd()) {
        // The begin of a subprogram that M98 calls; the flow passes over it.
        line.statements.emplace_back(DefineStatement{.name = word.label});
        return true;
    }
    const auto* const keyword = std::ranges::find_if(
        kKeywords, [&](const Keyword& row) { return cursor.takeKeyword(row.text); });
    if (keyword == std::end(kKeywords)) {
        return fail(cursor, "a word of flow is missing");
    }
    if (word.number && keyword->form != Keyword::Form::kCall) {
        return fail(cursor, "only a call can compute its number");
    }
    switch (keyword->form) {
    case Keyword::Form::kSub:
        line.statements.emplace_back(DefineStatement{.name = word.label, .isAmongBlocks = true});
        return expectEnd(cursor);
    case Keyword::Form::kEndSub:
        return readReturn(cursor, ReturnStatement::Kind::kDefinition, line);
    case Keyword::Form::kReturn:
        return readReturn(cursor, ReturnStatement::Kind::kSubprogram, line);
    case Keyword::Form::kCall:
        return readCall(cursor, std::move(word), line);
    case Keyword::Form::kBranch:
        return readBranch(*keyword, cursor, word.label, line);
    case Keyword::Form::kLoop:
        break;
    }
    LoopStatement loop;
    loop.label = word.label;
    return readLoop(*keyword, cursor, std::move(loop), line);
}

bool OWordGrammar::readOWord(BlockCursor& cursor, OWord& word) {
    cursor.skipBlanks();
    if (cursor.take('<')) {
        const std::size_t end = cursor.rest().find('>');
        if (end == std::string_view::npos) {
            return fail(cursor, "the name has no end");
        }
        for (const char c : cursor.rest().substr(0, end)) {
            if (c != ' ' && c != '\t') {
                word.label += toLowerByte(c);
            }
        }
        cursor.advance(end + 1);
        return !word.label.empty() || fail(cursor, "the name is empty");
    }
    if (isDigitByte(cursor.peek())) {
        const std::string_view digits = cursor.takeDigits();
        word.label = digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
        return true;
    }
    return readExpression(cursor, Reading::kOperand, word.number);
}

bool OWordGrammar::readBranch(const Keyword& keyword, BlockCursor& cursor, std::string label,
                              ProgramLine& line) {
    BranchStatement branch;
    branch.part = keyword.branch;
    branch.label = std::move(label);
    if (keyword.hasCondition && !readExpression(cursor, Reading::kOperand, branch.condition)) {
        return false;
    }
    line.statements.emplace_back(std::move(branch));
    return expectEnd(cursor);
}

bool OWordGrammar::readLoop(const Keyword& keyword, BlockCursor& cursor, LoopStatement loop,
                            ProgramLine& line) {
    loop.part = keyword.loop;
    loop.kind = keyword.loopKind;
    if (keyword.hasCondition && !readExpression(cursor, Reading::kOperand, loop.condition)) {
        return false;
    }
    line.statements.emplace_back(std::move(loop));
    return expectEnd(cursor);
}

bool OWordGrammar::readCall(BlockCursor& cursor, OWord word, ProgramLine& line) {
    CallStatement call;
    call.name = std::move(word.label);
    call.number = std::move(word.number);
    call.locals = CallStatement::Locals::kPlaces;
    while (!cursor.isAtEnd()) {
        if (!readExpression(cursor, Reading::kOperand, call.arguments.emplace_back().value)) {
            return false;
        }
    }
    line.statements.emplace_back(std::move(call));
    return true;
}

bool OWordGrammar::readReturn(BlockCursor& cursor, ReturnStatement::Kind kind, ProgramLine& line) {
    ReturnStatement back;
    back.kind = kind;
    back.needsCall = true;
    if (!cursor.isAtEnd() && !readExpression(cursor, Reading::kOperand, back.value)) {
        return false;
    }
    line.statements.emplace_back(std::move(back));
    return expectEnd(cursor);
}

bool OWordGrammar::addCodes(std::vector<BlockWord> words, const BlockCursor& cursor,
                            ProgramLine& line) {
    if (extractCode(words, 'M', 98)) {
        return addNumberedCall({}, std::move(words), cursor, line);
    }
    const bool isReturn = extractCode(words, 'M', 99);
    addWords(words, line);
    if (isReturn) {
        line.statements.emplace_back(ReturnStatement{.restarts = true});
    }
    return true;
}
