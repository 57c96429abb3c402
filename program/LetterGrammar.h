#pragma once

#include "program/Grammar.h"

/// What the families have in common whose words are a letter and an operand ("X#1", "Y[#2+1]") and
/// whose variables have a mark.
class LetterGrammar : public Grammar {
public:
    using Grammar::Grammar;

protected:
    /// Reads all words from the cursor on. The text in front of the first one stays with it.
    [[nodiscard]] bool readWords(BlockCursor& cursor, std::vector<BlockWord>& words);
    /// Takes the word of this letter, the first one, out of `words`; none when there is none.
    [[nodiscard]] static std::optional<BlockWord> extract(std::vector<BlockWord>& words,
                                                          char letter);
    /// The same for a code, the text of which stays nowhere. Tells whether it stood there.
    [[nodiscard]] static bool extractCode(std::vector<BlockWord>& words, char letter, double code);
    /// The value of the word of this letter, taken out of `words`.
    [[nodiscard]] std::optional<Expression> extractValue(std::vector<BlockWord>& words,
                                                         char letter) const;
    /// Adds the words, then the call of the program whose number stands behind P, as often as L
    /// says.
    [[nodiscard]] bool addNumberedCall(CallStatement call, std::vector<BlockWord> words,
                                       const BlockCursor& cursor, ProgramLine& line);

private:
    [[nodiscard]] bool readWord(BlockCursor& cursor, BlockWord& word);
    [[nodiscard]] std::string_view unknownFunction(std::string_view text) const;
    [[nodiscard]] bool readAssignment(BlockCursor& cursor, BlockWord& word);
};
