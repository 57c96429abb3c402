#pragma once

#include "apt/ResRegularCommand.h"
#include "commands/ModalCommand.h"
#include "commands/Parameter.h"

#include <memory>

class Factory;
class MachineStatus;

/// The tool change. Its word writes the tool statement; a tool word alone only selects the tool
/// for the next change.
class RegularCommand : public ModalCommand {
public:
    RegularCommand(MachineStatus* status, Factory* factory);
    ~RegularCommand() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status);
    /// The tool word; not owned, may be null.
    void InitToolParm(Parameter* word) noexcept { m_toolWord = word; }
    [[nodiscard]] Parameter* GetToolParm() const noexcept { return m_toolWord; }
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    void consumeTool(char* line);

    MachineStatus* m_status;
    std::unique_ptr<ResRegularCommand> m_writer;
    Parameter* m_toolWord = nullptr;
};
