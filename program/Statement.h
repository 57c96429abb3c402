#pragma once

#include "macro/Expression.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What the text of a program says beside its words, in terms that all families share: each grammar
/// turns its spelling into these few statements, and one runner executes them.

/// A word of a block, or an assignment among the words.
struct WordPiece {
    enum class Kind {
        kText,      ///< handed on as it stands
        kValue,     ///< letters and the number that the value gives
        kWhole,     ///< the same for a word that takes whole numbers only
        kAssignment ///< sets a variable and leaves no word
    };

    Kind kind = Kind::kText;
    std::string text = {};    ///< the text; of a value what stands in front of its number
    std::string behind = {};  ///< of a value what stands behind its number
    std::string address = {}; ///< of a value the letters alone
    Expression value = {};
    Expression target = {}; ///< of an assignment
};

/// A block for the command model.
struct WordsStatement {
    std::vector<WordPiece> pieces = {};
    bool isSilent = false; ///< nothing but assignments: no block for the command model
};

struct JumpTarget {
    std::string label = {};                ///< empty for a block number
    std::optional<Expression> number = {}; ///< of the block
};

struct JumpStatement {
    enum class Direction {
        kForwardFirst, ///< then from the start of the program
        kForward,
        kBackward
    };

    std::optional<Expression> condition = {};
    JumpTarget target = {};
    Direction direction = Direction::kForwardFirst;
    bool mayMiss = false; ///< no failure where the target is missing
};

/// The jump of the first alternative whose value is that of the selector.
struct ChoiceStatement {
    struct Alternative {
        Expression value;
        JumpStatement jump;
    };
    Expression selector = {};
    std::vector<Alternative> alternatives = {};
    std::optional<JumpStatement> otherwise = {};
};

/// A part of a branch. Parts of one branch have the same label.
struct BranchStatement {
    enum class Part { kIf, kElseIf, kElse, kEnd };

    Part part = Part::kIf;
    std::string label = {};
    std::optional<Expression> condition = {}; ///< of the first two
};

/// A part of a loop. Parts of one loop have the same label and, where a family tells them apart by
/// their words, the same kind.
struct LoopStatement {
    enum class Part {
        kBegin,
        kEnd,
        kWhile, ///< the begin of a loop, or the end of one that began with kDo
        kBreak,
        kContinue
    };
    enum class Kind {
        kWhile,   ///< a condition at the begin
        kDo,      ///< a condition at the end, under which it goes on
        kUntil,   ///< a condition at the end, which ends it
        kTimes,   ///< as often as a number says
        kCounted, ///< a variable counts up to a number
        kForever
    };

    Part part = Part::kBegin;
    Kind kind = Kind::kWhile;
    std::string label = {};
    std::optional<Expression> condition =
        {};                                  ///< where the kind has one; how often; the start value
    std::optional<Expression> variable = {}; ///< of kCounted
    std::optional<Expression> last = {};     ///< of kCounted
};

/// Repeats a part of the program, once for each of `times` and then goes on behind this statement.
struct RepeatStatement {
    std::string first = {};                     ///< label of the first block
    std::string last = {};                      ///< label of the last block; empty: see below
    std::optional<Expression> firstNumber = {}; ///< of the block, in place of its label
    std::optional<Expression> lastNumber = {};  ///< likewise
    std::optional<Expression> times = {};
    bool isBlockAlone = false; ///< the block of `first` alone; else up to here
};

struct CallStatement {
    enum class Locals {
        kShared,  ///< those of the caller
        kLetters, ///< new ones from words by letter
        kPlaces   ///< new ones from arguments by place
    };
    struct Argument {
        char letter = '\0';              ///< of kLetters
        std::optional<Expression> value; ///< none: left out
    };

    std::string name = {};                 ///< empty: `number` tells which
    std::optional<Expression> number = {}; ///< of a program or, for kInternal, of a block
    bool isBlockNumber = false;            ///< of this program
    bool mayBePacked = false;              ///< 51000 is five times program 1000
    Locals locals = Locals::kShared;
    std::vector<Argument> arguments = {};
    std::optional<Expression> times = {};
};

/// A call behind every later block that moves; without a call the end of that.
struct ModalCallStatement {
    std::optional<CallStatement> call = {};
};

struct ReturnStatement {
    enum class Kind {
        kSubprogram, ///< of any kind; ends the program in the main one
        kDefinition  ///< the end of a definition among the blocks
    };
    Kind kind = Kind::kSubprogram;
    bool needsCall = false;                 ///< a failure in the main program
    bool restarts = false;                  ///< in the main program, a control would begin again
    std::optional<Expression> value = {};   ///< what the caller gets
    std::optional<JumpTarget> resumes = {}; ///< where the caller goes on, or the main program
};

/// The begin of a subprogram: among the blocks, where running into it passes over it, or at the
/// start of its text.
struct DefineStatement {
    struct Parameter {
        std::string name;
        ValueType type = ValueType::kReal;
        std::optional<Expression> initial;
    };
    std::string name = {};
    bool isAmongBlocks = false;
    std::vector<Parameter> parameters = {};
};

/// Makes variables of the present call.
struct DeclareStatement {
    std::vector<DefineStatement::Parameter> variables = {};
};

/// The program ends itself.
struct AlarmStatement {
    std::string text = {};
};

using Statement = std::variant<WordsStatement, JumpStatement, ChoiceStatement, BranchStatement,
                               LoopStatement, RepeatStatement, CallStatement, ModalCallStatement,
                               ReturnStatement, DefineStatement, DeclareStatement, AlarmStatement>;
