#include "program/holdsProgramWord.h"

#include "driver/holdsWord.h"

#include <variant>

bool holdsProgramWord(const ProgramLine& line, const Vocabulary& vocabulary) {
    if (line.isPlain || line.code != 0 || line.statements.empty()) {
        return holdsWord(line.text.words, vocabulary);
    }
    for (const Statement& statement : line.statements) {
        const auto* const words = std::get_if<WordsStatement>(&statement);
        if (words == nullptr || words->pieces.size() > 1 ||
            holdsWord(words->pieces.front().text, vocabulary)) {
            return true;
        }
    }
    return false;
}
