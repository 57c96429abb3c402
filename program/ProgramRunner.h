#pragma once

#include "macro/Evaluator.h"
#include "program/MachineView.h"
#include "program/ProgramError.h"
#include "program/ProgramLibrary.h"
#include "program/Variables.h"
#include "program/Vocabulary.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Executes the statements of a program and stops at every block for the command model. It knows
/// no family: what differs stands in the statements and in the traits.
class ProgramRunner {
public:
    static constexpr std::size_t kMostCalls = 100;    ///< that are open at a time
    static constexpr long kMostIdleSteps = 1'000'000; ///< statements without a block
    static constexpr long kStepsPerBlock = 100; ///< of the whole run, beside the idle ones of one

    struct Limits {
        long mostBlocks = 10'000'000; ///< that the program may give
        bool givesComments = false;   ///< a line of statements gives a block when it has a comment
    };

    /// All must outlive the runner.
    ProgramRunner(const LanguageTraits& traits, ProgramLibrary& library,
                  const Vocabulary& vocabulary, const MachineView& machine, Limits limits);

    /// Goes on to the next block. False at the end of the program and after a failure. Throws
    /// std::bad_alloc.
    [[nodiscard]] bool next();

    // The block, or the line that failed.
    [[nodiscard]] const ProgramFile& file() const noexcept { return *m_file; }
    [[nodiscard]] long line() const noexcept { return m_line; } ///< from 0
    [[nodiscard]] const BlockText& text() const noexcept { return *m_text; }
    /// What the command model is to see: every value is a number.
    [[nodiscard]] std::string_view words() const noexcept { return m_words; }
    [[nodiscard]] bool isComputed() const noexcept { return m_isComputed; }
    /// Whether a control would begin the program again here.
    [[nodiscard]] bool restarts() const noexcept { return m_restarts; }

    [[nodiscard]] const ProgramError& error() const noexcept { return m_error; }

    /// Executes a line outside of a program, for whoever tries out the language: assignments and
    /// declarations. False after a failure.
    [[nodiscard]] bool executeAlone(const ProgramLine& line);
    /// The value of an expression. False after a failure.
    [[nodiscard]] bool evaluateAlone(const Expression& expression, Value& value) {
        return evaluate(expression, value);
    }

private:
    struct LoopState {
        long line = 0;
        double limit = 0.0; // passes left, or the last value
    };
    /// What runs: the main program, a subprogram, or a part that is repeated.
    struct Level {
        ProgramFile* file = nullptr;
        long first = 0; // line of the first pass and of every further one
        long end = 0;   // behind the last line
        long line = 0;  // executed next
        std::size_t statement = 0;
        long passes = 1;
        bool isPart = false;  // of the level below: a return leaves that one, too
        bool isBound = false; // a part that is left at its end only
        bool hasLocals = false;
        bool isModal = false;
        std::vector<Value> arguments; // by place; vacant ones were left out
        std::vector<LoopState> loops;
    };
    enum class Step { kGoOn, kBlock, kFailed };

    [[nodiscard]] bool stepToBlock();
    [[nodiscard]] static long mostSteps(long mostBlocks) noexcept;
    [[nodiscard]] bool countStep();
    [[nodiscard]] Step executeLine();
    [[nodiscard]] Step give(std::string_view words, bool isComputed);
    [[nodiscard]] bool mustGiveComments(const ProgramLine& line) noexcept;

    [[nodiscard]] Step execute(const WordsStatement& statement);
    [[nodiscard]] Step execute(const JumpStatement& statement);
    [[nodiscard]] Step execute(const ChoiceStatement& statement);
    [[nodiscard]] Step execute(const BranchStatement& statement);
    [[nodiscard]] Step execute(const LoopStatement& statement);
    [[nodiscard]] Step execute(const RepeatStatement& statement);
    [[nodiscard]] Step execute(const CallStatement& statement);
    [[nodiscard]] Step execute(const ModalCallStatement& statement);
    [[nodiscard]] Step execute(const ReturnStatement& statement);
    [[nodiscard]] Step execute(const DefineStatement& statement);
    [[nodiscard]] Step execute(const DeclareStatement& statement);
    [[nodiscard]] Step execute(const AlarmStatement& statement);

    [[nodiscard]] bool appendValue(const WordPiece& piece);
    [[nodiscard]] bool appendWhole(const WordPiece& piece, double number);
    [[nodiscard]] bool assign(const Expression& target, const Value& value);
    [[nodiscard]] bool assign(const VariableId& variable, const Value& value);
    [[nodiscard]] bool makeVariable(const DefineStatement::Parameter& variable, const Value& given);

    [[nodiscard]] Step jump(const JumpTarget& target, JumpStatement::Direction direction,
                            bool mayMiss);
    [[nodiscard]] Step enterBranch();
    [[nodiscard]] Step leaveBranch();
    [[nodiscard]] Step beginLoop(const LoopStatement& statement);
    [[nodiscard]] Step endLoop(const LoopStatement& statement);
    [[nodiscard]] Step goOnCounting(const LoopStatement& begin, long beginLine);
    [[nodiscard]] Step leap(const LoopStatement& statement);
    [[nodiscard]] LoopState* stateOf(long beginLine);
    void setState(long beginLine, double limit);
    void dropState(long beginLine);

    [[nodiscard]] bool call(const CallStatement& statement, bool isModal);
    [[nodiscard]] bool locate(const CallStatement& statement, ProgramLibrary::Place& place,
                              long& passes);
    [[nodiscard]] std::optional<long> blockOfPart(long number);
    [[nodiscard]] bool locateByNumbers(const RepeatStatement& statement, Level& level);
    [[nodiscard]] bool passLetters(const CallStatement& statement,
                                   const std::vector<Value>& values);
    [[nodiscard]] bool fix(std::optional<Expression>& expression);
    [[nodiscard]] bool push(Level level);
    void pop();
    [[nodiscard]] bool leavePart();
    [[nodiscard]] Step returnFromMain(const ReturnStatement& statement);
    void endPass();

    [[nodiscard]] bool evaluate(const Expression& expression, Value& value);
    [[nodiscard]] bool evaluateTruth(const Expression& expression, bool& truth);
    [[nodiscard]] bool evaluateWhole(const Expression& expression, long& number);

    [[nodiscard]] Level& top() noexcept { return m_levels.back(); }
    [[nodiscard]] const ProgramLine& lineAt(long line);
    void goTo(long line) noexcept;
    [[nodiscard]] long callCount() const noexcept;
    bool fail(int code, std::string text); // false
    bool failByMacro();                    // false
    Step missing(std::string text);

    const LanguageTraits& m_traits;
    ProgramLibrary& m_library;
    const Vocabulary& m_vocabulary;
    const MachineView& m_machine;
    Limits m_limits;
    bool m_hasGivenComments = false; // of the line that is executed next
    Variables m_variables;
    Evaluator m_evaluator;
    MacroError m_macroError;
    ProgramError m_error;

    std::vector<Level> m_levels;
    std::optional<CallStatement> m_modalCall;
    bool m_mayCallModally = false; // the block given last stands under the modal call
    long m_blocks = 0;
    long m_steps = 0;
    long m_idleSteps = 0; // of them, since the last block

    ProgramFile* m_file;
    long m_line = 0;
    const BlockText* m_text = nullptr;
    std::string m_words;
    bool m_isComputed = false;
    bool m_restarts = false;
    std::vector<std::pair<VariableId, Value>> m_later; // assignments behind the block
};
