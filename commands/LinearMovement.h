#pragma once

#include "commands/PathMovement.h"

class Factory;

/// The straight movement: one instance for the rapid traverse, one for the feed movement.
class LinearMovement : public PathMovement {
public:
    LinearMovement(MachineStatus* status, Factory* factory);
    ~LinearMovement() override;

    /// `rapid` is TRUE for the rapid traverse. The writer is replaced by a new one of `factory`.
    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, MachineStatus* status, Boolean rapid);
    /// False when the factory could not make the writer: the command must not be computed then.
    [[nodiscard]] bool HasWriter() const noexcept { return writer().HasStraight(); }

    /// Takes the coordinate words and, where they mean something, the words of arcs.
    bool TakeWords(char* line) override;

private:
    int makeMovement(Movement& movement) override;

    Boolean m_rapid = FALSE;
    bool m_hasArcWords = false;
};
