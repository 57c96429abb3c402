#include "program/HashGrammar.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace {

bool isArgument(const BlockWord& word) noexcept {
    return word.letters.size() == 1 && word.letters != "G" && word.letters != "N" &&
           (word.number || word.value);
}

} // namespace

bool HashGrammar::isStatement(char letter, long number) const noexcept {
    switch (letter) {
    case 'O':
        return true;
    case 'M':
        return number == 97 || number == 98 || number == 99;
    case 'G':
        return number == 65 || number == 66 || number == 67 || vocabulary().followsBlocks(number);
    default:
        return false;
    }
}

bool HashGrammar::readBlock(BlockCursor& cursor, ProgramLine& line) {
    for (const std::string_view print : {"POPEN", "PCLOS", "BPRNT", "DPRNT"}) {
        if (cursor.takeKeyword(print)) {
            return true; // it prints, which is nothing for the path
        }
    }
    if (cursor.takeKeyword("GOTO")) {
        return readJump(cursor, line);
    }
    if (cursor.takeKeyword("IF")) {
        return readIf(cursor, line);
    }
    if (cursor.takeKeyword("WHILE")) {
        return readWhile(cursor, line);
    }
    if (cursor.takeKeyword("DO")) {
        return readLoopMark(cursor, {.kind = LoopStatement::Kind::kForever}, line);
    }
    if (cursor.takeKeyword("END")) {
        return readLoopMark(cursor, {.part = LoopStatement::Part::kEnd}, line);
    }
    for (const std::string_view flow : {"GOTO", "IF[", "WHILE["}) {
        if (cursor.rest().find(flow) != std::string_view::npos) {
            return fail(cursor, "a jump, branch or loop stands behind words");
        }
    }
    std::vector<BlockWord> words(1);
    words.front().text = line.text.words.substr(0, cursor.position());
    return readWords(cursor, words) && addCodes(std::move(words), cursor, line);
}

bool HashGrammar::readJump(BlockCursor& cursor, ProgramLine& line) {
    JumpStatement jump;
    if (!readExpression(cursor, Reading::kExpression, jump.target.number)) {
        return false;
    }
    line.statements.emplace_back(std::move(jump));
    return expectEnd(cursor);
}

bool HashGrammar::readIf(BlockCursor& cursor, ProgramLine& line) {
    if (!readExpression(cursor, Reading::kCondition, line.condition)) {
        return false;
    }
    if (cursor.takeKeyword("GOTO")) {
        return readJump(cursor, line);
    }
    (void)cursor.takeKeyword("THEN");
    if (cursor.isAtEnd()) {
        return fail(cursor, "a statement is missing");
    }
    std::vector<BlockWord> words;
    return readWords(cursor, words) && addCodes(std::move(words), cursor, line);
}

bool HashGrammar::readWhile(BlockCursor& cursor, ProgramLine& line) {
    LoopStatement loop;
    if (!readExpression(cursor, Reading::kCondition, loop.condition)) {
        return false;
    }
    if (!cursor.takeKeyword("DO")) {
        return fail(cursor, "DO is missing");
    }
    return readLoopMark(cursor, std::move(loop), line);
}

bool HashGrammar::readLoopMark(BlockCursor& cursor, LoopStatement loop, ProgramLine& line) {
    loop.label = cursor.takeDigits();
    if (loop.label.empty()) {
        return fail(cursor, "the number of the loop is missing");
    }
    line.statements.emplace_back(std::move(loop));
    return expectEnd(cursor);
}

bool HashGrammar::addCodes(std::vector<BlockWord> words, const BlockCursor& cursor,
                           ProgramLine& line) {
    for (const double code : {65.0, 66.0}) {
        const auto call = std::ranges::find_if(
            words, [&](const BlockWord& word) { return word.isCode('G', code); });
        if (call != words.end() && std::any_of(words.begin(), call, isArgument)) {
            return fail(cursor, "words stand in front of the macro call");
        }
        if (extractCode(words, 'G', code)) {
            return addMacroCall(std::move(words), code == 66.0, cursor, line);
        }
    }
    const auto following = std::ranges::find_if(words, [&](const BlockWord& word) {
        return word.isCode('G', word.number.value_or(0.0)) &&
               vocabulary().followsBlocks(std::lround(*word.number));
    });
    if (following != words.end()) {
        const BlockWord code = *following;
        return addFollowing(code, std::move(words), cursor, line);
    }
    const bool endsModalCall = extractCode(words, 'G', 67);
    const bool isInternal = extractCode(words, 'M', 97);
    if (isInternal || extractCode(words, 'M', 98)) {
        CallStatement call;
        call.isBlockNumber = isInternal;
        call.mayBePacked = !isInternal;
        if (!addNumberedCall(std::move(call), std::move(words), cursor, line)) {
            return false;
        }
    } else if (extractCode(words, 'M', 99)) {
        ReturnStatement back = {.restarts = true};
        if (auto number = extractValue(words, 'P')) {
            back.resumes = JumpTarget{.number = std::move(number)};
        }
        addWords(words, line);
        line.statements.emplace_back(std::move(back));
    } else {
        addWords(words, line);
    }
    if (endsModalCall) {
        line.statements.emplace_back(ModalCallStatement{});
    }
    return true;
}

// The code stands in front of the part and behind it.
bool HashGrammar::addFollowing(const BlockWord& code, std::vector<BlockWord> words,
                               const BlockCursor& cursor, ProgramLine& line) {
    RepeatStatement part;
    part.firstNumber = extractValue(words, 'P');
    part.lastNumber = extractValue(words, 'Q');
    if (!part.firstNumber || !part.lastNumber) {
        return fail(cursor, "the numbers of the first and of the last block are missing");
    }
    constexpr std::string_view kAxes = "XYZUVW";
    if (std::ranges::any_of(words, [&](const BlockWord& word) {
            return word.letters.size() == 1 &&
                   kAxes.find(word.letters.front()) != std::string_view::npos;
        })) {
        return fail(cursor, "a code that follows blocks has no place of its own");
    }
    addWords(words, line);
    line.statements.emplace_back(std::move(part));
    addWords({code}, line);
    return true;
}

// Every word but the codes beside the call is an argument.
bool HashGrammar::addMacroCall(std::vector<BlockWord> words, bool isModal,
                               const BlockCursor& cursor, ProgramLine& line) {
    CallStatement call;
    call.locals = CallStatement::Locals::kLetters;
    call.number = extractValue(words, 'P');
    if (!call.number) {
        return fail(cursor, "the call needs the number of the macro");
    }
    call.times = extractValue(words, 'L');
    for (const BlockWord& word : words) {
        if (isArgument(word)) {
            call.arguments.push_back({word.letters.front(), expressionOf(word)});
        }
    }
    std::erase_if(words, isArgument);
    addWords(words, line);
    if (isModal) {
        line.statements.emplace_back(ModalCallStatement{std::move(call)});
    } else {
        line.statements.emplace_back(std::move(call));
    }
    return true;
}
