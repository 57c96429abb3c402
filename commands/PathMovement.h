#pragma once

#include "commands/MovementCommand.h"
#include "commands/MovementWriter.h"

/// The way of the movements of this house: a command makes a movement as a value in program
/// coordinates; it passes the stages, and is written in one place.
class PathMovement : public MovementCommand {
public:
    ~PathMovement() override;

    /// Takes the words of the block and becomes the active movement.
    void InitStatus(char* line) override;
    /// Moves when the command's word or, while the command is active, one of its other words stands
    /// on the block. The words of a control may ask for more than the command's own word.
    int Compute(char* line) override;
    /// Makes the movement, passes it through the stages and writes it.
    int Act() override;

protected:
    explicit PathMovement(MachineStatus* status) noexcept : MovementCommand(status) {}

    /// Moves straight to a point of the program. A thread has its pitch and needs no feed. Returns
    /// 0 or the code of a refusal.
    int moveTo(Boolean rapid, const gmVector3& point, bool needsFeed = true);

    [[nodiscard]] MovementWriter& writer() noexcept { return m_writer; }
    [[nodiscard]] const MovementWriter& writer() const noexcept { return m_writer; }

private:
    /// What the words taken from the block ask for, in program coordinates; they are consumed.
    /// Start, tool axis and feed are there. Returns 0 or the code of a refusal. Not for a command
    /// that makes several movements: it has an Act of its own.
    virtual int makeMovement(Movement& /*movement*/) { return 0; }
    void passStages(Movement& movement) const;
    void begin();
    int write();

    Movement m_movement; // of the block at hand; made in place, every field set
    MovementWriter m_writer;
    bool m_hasWords = false; // of the block at hand, beside the command's own
};
