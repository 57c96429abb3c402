#pragma once

#include "commands/ActionKind.h"
#include "commands/CommandWord.h"
#include "softCommon/Boolean.h"

class Control;

enum class CommandRank {
    kPlain,
    kTakesWords,  ///< what means something else beside another code: a dwell has its own X, F or S
    kClaimsBlocks ///< shares its code with one that takes the other blocks
};

/// Recognises one command word of a block: an address text and, mostly, a number ("G01", "M30").
/// scanNC cuts the word out and lets the concrete command take its values from the rest; the
/// NC-line status carries the find over to Compute, which runs after all commands were searched.
///
/// A command recognises (takes its word and its values out of the block) and acts (changes the
/// machine and writes). The commands of this house keep the two apart, and all of them act through
/// perform: where the dialect has an order of acting of its own, they wait for their turn.
class Command {
public:
    Command() noexcept = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command();

    /// A state of the command that other commands ask for; 0 unless a command has one.
    [[nodiscard]] virtual int GetStatus();
    /// The command was found; `line` is the block without its word. Does nothing here.
    virtual void InitStatus(char* line);
    /// Evaluates the command for the block and writes its statements. Returns 0, or a code that
    /// ends the processing of the file.
    virtual int Compute(char* line);
    /// The first position at or after `p` that is not a decimal digit.
    [[nodiscard]] virtual char* MoveAfterNumber(char* p);
    /// The second of the two steps: does what the block asked for. Returns 0, or a code that ends
    /// the processing of the file. Does nothing here.
    virtual int Act();
    /// Whether the block holds what the command wants beside its word, so that commands may share a
    /// code. The word is still there, and stays when the answer is no. Any block will do here.
    [[nodiscard]] virtual bool Claims(const char* line) const;

    /// Called before the groups compute, for the active commands of movements and tools: takes words
    /// of the block that are its own though they look like those of another group, or that it acts
    /// on before the others. Returns 0 or a code that ends the processing. Does nothing here.
    virtual int ClaimWords(char* line);

    /// Stores a copy of `syntax` unless it is null (the old one then stays), and `number` in any
    /// case. A number of -1 means that the word has none. When memory is exhausted the text is null
    /// and the command never matches.
    void InitSyntax(const char* syntax, const int& number) noexcept { m_word.Set(syntax, number); }
    /// Finds the first word of this command, cuts it and the digits behind it out of `line`, sets
    /// the NC-line status and calls InitStatus. Digits are compared by value, so "G1" and "G01" are
    /// the same. A second occurrence stays. Returns 0, or the code of a command that acted.
    int scanNC(char* line);

    /// The same for a code that is known by its spelling, perhaps with a fraction ("G59.1",
    /// "SUPA"). Throws std::bad_alloc.
    void InitCode(const WordCode& code) { m_word.Set(code); }
    /// What the command does, where the order of acting matters; kEnd at first.
    void SetActionKind(ActionKind kind) noexcept { m_actionKind = kind; }
    [[nodiscard]] ActionKind GetActionKind() const noexcept { return m_actionKind; }
    /// Has the control say when the command acts; null: at once. Not owned.
    void SetControl(Control* control) noexcept { m_control = control; }

    /// How the word is told from other text of a block; WordRule::kPlain at first.
    void SetWordRule(WordRule rule) noexcept { m_word.SetRule(rule); }

    /// How early the command is tried: before all of a lower rank, whatever the lengths.
    [[nodiscard]] CommandRank Rank() const noexcept { return m_rank; }

    /// Whether the last scanNC found the word and so shortened the block.
    [[nodiscard]] bool WasFound() const noexcept { return m_wasFound; }
    [[nodiscard]] const CommandWord& Word() const noexcept { return m_word; }
    [[nodiscard]] char* GetSyntaxString() const noexcept { return m_word.Text().get(); }
    [[nodiscard]] int GetSyntaxNumber() const noexcept { return m_word.Number(); }
    /// TRUE from a successful scanNC until the command has been computed.
    [[nodiscard]] Boolean GetNCLineStatus() const noexcept { return m_ncLineStatus; }
    void SetNCLineStatus(Boolean status) noexcept { m_ncLineStatus = status; }

    /// Says that the command is one of this house as it stands, and not derived by a host: the
    /// digits of its word are plain ones, and it does nothing to a block but remove text. Only then
    /// may a search be left out where it finds nothing.
    void MarkAsBuiltIn() noexcept { m_isBuiltIn = true; }
    [[nodiscard]] bool IsBuiltIn() const noexcept { return m_isBuiltIn; }
    /// Whether a block without the command's own word has nothing for it, so that Compute need not
    /// be called. Counts for built-in commands only.
    [[nodiscard]] bool IsIdle() const noexcept { return m_isIdle; }

protected:
    /// Acts, at once or when the block's turn comes. Every command acts through here.
    int perform();
    void setRank(CommandRank rank) noexcept { m_rank = rank; }
    void setIdle(bool idle) noexcept { m_isIdle = idle; }
    /// Keeps the code of what InitStatus performed for the caller of scanNC.
    void keepCode(int code) noexcept { m_code = code; }

private:
    CommandWord m_word;
    Control* m_control = nullptr;
    Boolean m_ncLineStatus = FALSE;
    bool m_isBuiltIn = false;
    bool m_isIdle = false;
    bool m_wasFound = false;
    ActionKind m_actionKind = ActionKind::kEnd;
    CommandRank m_rank = CommandRank::kPlain;
    int m_code = 0; // of what InitStatus performed
};
