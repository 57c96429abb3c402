#pragma once

#include "apt/ResCircularMovement.h"
#include "apt/ResLinearMovement.h"
#include "commands/Movement.h"

#include <memory>

/// The place where movements leave the command model: it owns the writers of straight movements and
/// of arcs, of which a command needs those of the movements that it makes.
class MovementWriter {
public:
    /// Takes the writer over; null when the factory had no memory for it.
    void SetStraight(ResLinearMovement* writer) noexcept { m_straight.reset(writer); }
    void SetArc(ResCircularMovement* writer) noexcept { m_arc.reset(writer); }
    [[nodiscard]] bool HasStraight() const noexcept { return m_straight != nullptr; }
    [[nodiscard]] bool HasArc() const noexcept { return m_arc != nullptr; }

    /// Writes the tool axis, if the movement tells one, and the movement in the coordinates of the
    /// output. The writer for its kind must be there. An arc without a direction ends the process.
    /// The movement is not const as the coordinates of a straight one are handed on as they are.
    void Write(Movement& movement);

private:
    void writeStraight(Movement& movement);
    void writeArc(const Movement& movement);

    std::unique_ptr<ResLinearMovement> m_straight;
    std::unique_ptr<ResCircularMovement> m_arc;
};
