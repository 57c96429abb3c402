#include "commands/MovementWriter.h"

void MovementWriter::Write(Movement& movement) {
    if (movement.arc) {
        writeArc(movement);
    } else {
        writeStraight(movement);
    }
}

void MovementWriter::writeStraight(Movement& movement) {
    if (movement.toolAxis) {
        m_straight->InitOutput(*movement.toolAxis);
    }
    gmVector3& end = movement.end;
    if (movement.axis) {
        m_straight->InitOutput(movement.rapid, end, *movement.axis);
        return;
    }
    m_straight->InitOutput(movement.rapid, end[0], end[1], end[2]);
}

void MovementWriter::writeArc(const Movement& movement) {
    if (movement.toolAxis) {
        m_arc->InitOutput(*movement.toolAxis);
    }
    const auto& [clockwise, centre, normal, hasCentreWord] = *movement.arc;
    const gmVector3& start = movement.start;
    const gmVector3& end = movement.end;
    m_arc->InitOutput(clockwise, start[0], start[1], start[2], end[0], end[1], end[2], centre[0],
                      centre[1], centre[2], normal[0], normal[1], normal[2]);
}
