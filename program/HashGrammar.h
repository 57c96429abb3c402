#pragma once

#include "program/LetterGrammar.h"

/// The family of ISO programs with macros: "IF[#1 EQ 2]GOTO 100", "WHILE[#1 LT 5]DO 1",
/// "G65 P9010 A1. X2.", "M98 P1000 L5".
class HashGrammar : public LetterGrammar {
public:
    explicit HashGrammar(const Vocabulary& vocabulary) : LetterGrammar(hashSyntax(), vocabulary) {}

protected:
    [[nodiscard]] bool readBlock(BlockCursor& cursor, ProgramLine& line) override;
    [[nodiscard]] bool isStatement(char letter, long number) const noexcept override;

private:
    [[nodiscard]] bool readJump(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readIf(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readWhile(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readLoopMark(BlockCursor& cursor, LoopStatement loop, ProgramLine& line);
    [[nodiscard]] bool addCodes(std::vector<BlockWord> words, const BlockCursor& cursor,
                                ProgramLine& line);
    [[nodiscard]] bool addFollowing(const BlockWord& code, std::vector<BlockWord> words,
                                    const BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool addMacroCall(std::vector<BlockWord> words, bool isModal,
                                    const BlockCursor& cursor, ProgramLine& line);
};
