#pragma once

#include "apt/ResLinearMovement.h"
#include "commands/MovementCommand.h"

#include <memory>

class Factory;

/// The straight movement: one instance for the rapid traverse, one for the feed movement.
class LinearMovement : public MovementCommand {
public:
    LinearMovement(MachineStatus* status, Factory* factory);
    ~LinearMovement() override;

    /// `rapid` is TRUE for the rapid traverse. The writer is replaced by a new one of `factory`.
    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean rapid);
    /// False when the factory could not make the writer: the command must not be computed then.
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;
    /// Writes a point when the command's word or, while the command is active, a coordinate stands
    /// on the block.
    int Compute(char* line) override;

private:
    std::unique_ptr<ResLinearMovement> m_writer;
    Boolean m_rapid = FALSE;
};
