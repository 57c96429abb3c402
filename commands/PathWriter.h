#pragma once

#include "apt/ResCircularMovement.h"
#include "apt/ResControl.h"
#include "apt/ResLinearMovement.h"
#include "commands/MovementWriter.h"
#include "commands/Sweep.h"

#include <memory>

/// The one place in which the movements of a control leave the command model. Arcs that lie in the
/// plane of arc statements are written as such, in equal pieces of at most 120 degrees: the line
/// that ends the statement meets a circle twice. All others become points on the true path.
class PathWriter {
public:
    /// Takes the writers over; null where the factory had no memory.
    void SetWriters(ResLinearMovement* straight, ResCircularMovement* arc) noexcept {
        m_writer.SetStraight(straight);
        m_writer.SetArc(arc);
    }
    [[nodiscard]] bool HasWriters() const noexcept {
        return m_writer.HasStraight() && m_writer.HasArc();
    }

    /// The normal of the plane in which arcs are written as statements, in the output's axes.
    void SetArcNormal(const gmVector3& normal) { m_normal = normal; }
    /// Every arc becomes points.
    void SplitArcs() noexcept { m_splitsArcs = true; }
    /// How far the way between two points may lie off the arc, mm; above 0.
    void SetTolerance(double tolerance) noexcept { m_tolerance = tolerance; }
    [[nodiscard]] double Tolerance() const noexcept { return m_tolerance; }

    /// Whether the arc can be written as a statement.
    [[nodiscard]] bool IsStatement(const Sweep& sweep) const;
    /// The number of statements that the arc takes. `unit` is the length of a millimetre in the
    /// coordinates of the output.
    [[nodiscard]] double PartsOf(const Sweep& sweep, double unit) const;
    /// Writes a movement in the coordinates of the output. Its arc has been counted.
    void Write(Movement& movement, double unit);

private:
    void writePieces(Movement& movement, const Sweep& sweep, long parts);
    void writePoints(Movement& movement, const Sweep& sweep, long parts);

    MovementWriter m_writer;
    gmVector3 m_normal = gmVector3(0.0, 0.0, 1.0);
    double m_tolerance = 0.01;
    bool m_splitsArcs = false;
};
