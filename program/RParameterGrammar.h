#pragma once

#include "program/Grammar.h"

/// The family with R parameters, names and words of structure: "X=R1+5", "IF R1>5 GOTOF LAST",
/// "FOR R2=1 TO 9", "DRILL(1,,R2)".
class RParameterGrammar : public Grammar {
public:
    explicit RParameterGrammar(const Vocabulary& vocabulary)
        : Grammar(rParameterSyntax(), vocabulary) {}

protected:
    [[nodiscard]] bool readBlock(BlockCursor& cursor, ProgramLine& line) override;
    [[nodiscard]] bool isStatement(char letter, long number) const noexcept override;

private:
    struct Keyword;
    /// Where a block is on its way to its statements.
    struct Block {
        BlockCursor& cursor;
        ProgramLine& line;
        std::vector<BlockWord> words;
        std::optional<Statement> last; ///< a call or a return among the words, which act before it
    };

    void readLabel(BlockCursor& cursor, ProgramLine& line) const;
    [[nodiscard]] bool readIf(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readFor(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readLoop(const Keyword& keyword, BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readRepeat(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readRepeatBlock(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readJump(BlockCursor& cursor, JumpStatement& jump);
    [[nodiscard]] bool readCase(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readDeclaration(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readProcedure(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readVariable(BlockCursor& cursor, ValueType type, bool needsType,
                                    DefineStatement::Parameter& variable);
    [[nodiscard]] bool readModalCall(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readCallByText(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readAlarm(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readReturn(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool passOver(BlockCursor& cursor, ProgramLine& line);

    [[nodiscard]] bool readWords(BlockCursor& cursor, ProgramLine& line);
    [[nodiscard]] bool readWord(Block& block);
    [[nodiscard]] bool readNamed(Block& block, std::string_view name, BlockWord word);
    [[nodiscard]] bool readAssignment(Block& block, std::size_t start);
    [[nodiscard]] bool readAddressed(Block& block, BlockWord word);
    [[nodiscard]] bool readBracketedValue(Block& block, BlockWord word);
    [[nodiscard]] bool readKnownCall(Block& block, BlockWord word);
    [[nodiscard]] bool readCall(BlockCursor& cursor, std::string_view name, CallStatement& call);
    [[nodiscard]] bool readTimes(BlockCursor& cursor, std::optional<Expression>& times);
    [[nodiscard]] bool isVariableBeforeEquals(BlockCursor cursor) const;

    static const Keyword kKeywords[];
};
