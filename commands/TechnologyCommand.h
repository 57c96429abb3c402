#pragma once

#include "commands/ModalCommand.h"

class MachineStatus;
class Parameter;

/// A modal command without geometry, perhaps with a value word (feed, speed, tool). Its own word
/// makes it act at once and become the active one of its group; while it is active, the value word
/// alone may make it act again.
class TechnologyCommand : public ModalCommand {
public:
    ~TechnologyCommand() override;

    /// Takes the value, acts, clears the NC-line status and becomes the active command.
    void InitStatus(char* line) override;
    /// Takes the value, and acts when that alone is a reason.
    int Compute(char* line) override;
    /// Takes the value word, if the command has one, and keeps its value.
    bool TakeWords(char* line) final;

protected:
    /// Status and word are not owned. A command without a value has no need of either.
    explicit TechnologyCommand(MachineStatus* status = nullptr) noexcept : m_status(status) {
        setIdle(true);
    }
    void initStatus(MachineStatus* status) noexcept { m_status = status; }
    void initValueWord(Parameter* word) noexcept {
        m_valueWord = word;
        setIdle(word == nullptr);
    }

    [[nodiscard]] MachineStatus& status() const noexcept { return *m_status; }
    [[nodiscard]] Parameter* valueWord() const noexcept { return m_valueWord; }

    /// Refuses a value below 0, where the control does. Returns 0 or the code.
    int checkValue();

private:
    virtual void keepValue(double /*value*/) noexcept {}
    /// Whether a value without the command's own word is a reason to act.
    [[nodiscard]] virtual bool actsOnValueAlone() const noexcept { return false; }

    MachineStatus* m_status;
    Parameter* m_valueWord = nullptr;
    bool m_isNegative = false; // the value taken last
};
