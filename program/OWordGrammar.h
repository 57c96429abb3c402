#pragma once

#include "program/LetterGrammar.h"

/// The family with flow by o-words: "o100 while [#1 lt 5]", "o<drill> call [3]".
class OWordGrammar : public LetterGrammar {
public:
    explicit OWordGrammar(const Vocabulary& vocabulary)
        : LetterGrammar(oWordSyntax(), vocabulary) {}

protected:
    [[nodiscard]] bool readBlock(BlockCursor& cursor, ProgramLine& line) override;
    [[nodiscard]] bool isStatement(char letter, long number) const noexcept override;
    /// "(abort, text)".
    [[nodiscard]] std::optional<std::string>
    alarmIn(const std::vector<std::string>& comments) const override;

private:
    struct OWord {
        std::string label;                ///< a name in small letters, or digits without zeros
        std::optional<Expression> number; ///< when the label is computed
    };
    struct Keyword;

    [[nodiscard]] bool readOWord(BlockCursor& cursor, OWord& word);
    [[nodiscard]] bool readLoop(const Keyword& keyword, BlockCursor& cursor, LoopStatement loop,
                                ProgramLine& line);
    [[nodiscard]] bool readBranch(const Keyword& keyword, BlockCursor& cursor, std::string label,
                                  ProgramLine& line);
    [[nodiscard]] bool readCall(BlockCursor& cursor, OWord word, ProgramLine& line);
    [[nodiscard]] bool readReturn(BlockCursor& cursor, ReturnStatement::Kind kind,
                                  ProgramLine& line);
    [[nodiscard]] bool addCodes(std::vector<BlockWord> words, const BlockCursor& cursor,
                                ProgramLine& line);

    static const Keyword kKeywords[];
};
