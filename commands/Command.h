#pragma once

#include "commands/TextCopy.h"
#include "softCommon/Boolean.h"

/// Recognises one command word of a block: an address text and, mostly, a number ("G01", "M30").
/// scanNC cuts the word out and lets the concrete command take its values from the rest; the
/// NC-line status carries the find over to Compute, which runs after all commands were searched.
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

    /// Stores a copy of `syntax` unless it is null (the old one then stays), and `number` in any
    /// case. A number of -1 means that the word has none. When memory is exhausted the text is null
    /// and the command never matches.
    void InitSyntax(const char* syntax, const int& number) noexcept;
    /// Finds the first word of this command, cuts it and the digits behind it out of `line`, sets
    /// the NC-line status and calls InitStatus. Digits are compared by value, so "G1" and "G01" are
    /// the same. A second occurrence stays. Always returns 0.
    int scanNC(char* line);

    [[nodiscard]] char* GetSyntaxString() const noexcept { return m_syntax.get(); }
    [[nodiscard]] int GetSyntaxNumber() const noexcept { return m_number; }
    /// TRUE from a successful scanNC until the command has been computed.
    [[nodiscard]] Boolean GetNCLineStatus() const noexcept { return m_ncLineStatus; }
    void SetNCLineStatus(Boolean status) noexcept { m_ncLineStatus = status; }

private:
    TextCopy m_syntax;
    int m_number = -1;
    Boolean m_ncLineStatus = FALSE;
};
