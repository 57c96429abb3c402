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
    /// Moves straight to a point of the program, for another command. Returns 0 or the code of a
    /// refusal.
    int MoveTo(const gmVector3& point) { return moveTo(m_rapid, point); }

private:
    int makeMovement(Movement& movement) override;
    [[nodiscard]] bool canMoveInMachine() const noexcept override { return true; }

    Boolean m_rapid = FALSE;
    bool m_hasArcWords = false;
};
