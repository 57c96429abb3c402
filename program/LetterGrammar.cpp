#include "program/LetterGrammar.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <utility>

bool LetterGrammar::readWords(BlockCursor& cursor, std::vector<BlockWord>& words) {
    for (;;) {
        const std::size_t first = cursor.position();
        if (cursor.isAtEnd()) {
            return true;
        }
        BlockWord& word = words.emplace_back();
        word.text.assign(cursor.position() - first, ' ');
        if (!readWord(cursor, word)) {
            return false;
        }
    }
}

bool LetterGrammar::readWord(BlockCursor& cursor, BlockWord& word) {
    const char c = cursor.peek();
    if (c == syntax().variable.mark) {
        return readAssignment(cursor, word);
    }
    if (c == '"') {
        return readQuoted(cursor, word);
    }
    if (c == '[' || c == ']' || c == '*' || c == '=') {
        return fail(cursor, "an address is missing");
    }
    const bool hasComma = c == ',' && cursor.rest().size() > 1 && isLetterByte(cursor.rest()[1]);
    if (!isLetterByte(c) && !hasComma) {
        word.text += c; // reported as text that nobody knows
        cursor.advance(1);
        return true;
    }
    if (parser().functionNameLength(cursor.rest()) != 0) {
        return fail(cursor, "a function stands without an address");
    }
    if (const std::string_view name = unknownFunction(cursor.rest()); !name.empty()) {
        return failFunction(cursor, name);
    }
    word.letters = cursor.rest().substr(0, hasComma ? 2 : 1);
    word.text += word.letters;
    cursor.advance(word.letters.size());
    cursor.skipBlanks();
    if (cursor.peek() == '=') {
        word.text += '=';
        cursor.advance(1);
        return readValue(cursor, Reading::kOperand, word);
    }
    const char next = cursor.peek();
    const bool hasValue = isDigitByte(next) || next == '.' || next == '-' || next == '+' ||
                          next == syntax().open || next == syntax().variable.mark ||
                          parser().functionNameLength(cursor.rest()) != 0;
    return !hasValue || readValue(cursor, Reading::kOperand, word);
}

// Letters in front of a bracket of which no function's name is the end: an address has one letter.
std::string_view LetterGrammar::unknownFunction(std::string_view text) const {
    const auto* const end = std::ranges::find_if_not(text, isLetterByte);
    const auto length = static_cast<std::size_t>(end - text.begin());
    if (length < 2 || end == text.end() || *end != syntax().open) {
        return {};
    }
    for (std::size_t i = 0; i < length; ++i) {
        if (parser().functionNameLength(text.substr(i)) != 0) {
            return {};
        }
    }
    return text.substr(0, length);
}

bool LetterGrammar::readAssignment(BlockCursor& cursor, BlockWord& word) {
    if (!readExpression(cursor, Reading::kVariable, word.target)) {
        return false;
    }
    if (!cursor.take('=')) {
        return fail(cursor, "\"=\" is missing");
    }
    return readExpression(cursor, Reading::kExpression, word.value);
}

std::optional<BlockWord> LetterGrammar::extract(std::vector<BlockWord>& words, char letter) {
    const auto found = std::ranges::find_if(words, [letter](const BlockWord& word) {
        return word.letters.size() == 1 && word.letters.front() == letter &&
               (word.number || word.value);
    });
    if (found == words.end()) {
        return std::nullopt;
    }
    BlockWord word = std::move(*found);
    words.erase(found);
    return word;
}

bool LetterGrammar::extractCode(std::vector<BlockWord>& words, char letter, double code) {
    return std::erase_if(words, [&](const BlockWord& word) { return word.isCode(letter, code); }) !=
           0;
}

std::optional<Expression> LetterGrammar::extractValue(std::vector<BlockWord>& words,
                                                      char letter) const {
    const std::optional<BlockWord> word = extract(words, letter);
    return word ? std::optional(expressionOf(*word)) : std::nullopt;
}

bool LetterGrammar::addNumberedCall(CallStatement call, std::vector<BlockWord> words,
                                    const BlockCursor& cursor, ProgramLine& line) {
    call.number = extractValue(words, 'P');
    if (!call.number) {
        return fail(cursor, "the call needs the number of the subprogram");
    }
    call.times = extractValue(words, 'L');
    addWords(words, line);
    line.statements.emplace_back(std::move(call));
    return true;
}
