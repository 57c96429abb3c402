#pragma once

#include "apt/ResRegularCommand.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The tool change. Its word writes the tool statement; a tool word alone only selects the tool
/// for the next change, or changes it where the machine has no other way.
class RegularCommand : public WithWriter<TechnologyCommand, ResRegularCommand> {
public:
    RegularCommand(MachineStatus* status, Factory* factory);
    ~RegularCommand() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status);
    /// The tool word; not owned, may be null.
    void InitToolParm(Parameter* word) noexcept { initValueWord(word); }
    [[nodiscard]] Parameter* GetToolParm() const noexcept { return valueWord(); }

    /// A tool word changes the tool from now on, unless that is in the spindle or 0. The word has
    /// so many digits at most, the last of which are the number of an offset. There is a control.
    void ChangeByWord(int digits, int offsetDigits) noexcept;

    /// A tool changed by its word is changed before the movement of the block.
    int ClaimWords(char* line) override;
    /// Refuses a tool word that has more digits, or a sign.
    int Act() override;

private:
    void keepValue(double value) noexcept override;
    [[nodiscard]] bool actsOnValueAlone() const noexcept override;

    int m_words = 0;        // that a tool word can be, 0 included; 0: it only selects
    int m_wordsPerTool = 1; // by the digits of the offset
    int m_changedTo = 0;    // by the last change
    bool m_isRefused = false;
};
