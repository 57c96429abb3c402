#pragma once

#include "apt/ResRegularCommand.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The tool change. Its word writes the tool statement; a tool word alone only selects the tool
/// for the next change.
class RegularCommand : public WithWriter<TechnologyCommand, ResRegularCommand> {
public:
    RegularCommand(MachineStatus* status, Factory* factory);
    ~RegularCommand() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status);
    /// The tool word; not owned, may be null.
    void InitToolParm(Parameter* word) noexcept { initValueWord(word); }
    [[nodiscard]] Parameter* GetToolParm() const noexcept { return valueWord(); }

    int Act() override;

private:
    void keepValue(double value) noexcept override;
};
