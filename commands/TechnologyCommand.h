#pragma once

#include "commands/ModalCommand.h"

/// A modal command without geometry: its own word makes it act at once and become the active one of
/// its group; while it is active, a value word alone may make it act again.
class TechnologyCommand : public ModalCommand {
public:
    ~TechnologyCommand() override;

    /// Takes the value words, acts, clears the NC-line status and becomes the active command.
    void InitStatus(char* line) override;
    /// Takes the value words, and acts when they alone are a reason.
    int Compute(char* line) override;

private:
    /// Whether value words without the command's own word are a reason to act.
    [[nodiscard]] virtual bool actsOnWordsAlone() const noexcept { return false; }
};
