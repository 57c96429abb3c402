#include "commands/CircularMovement.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

CircularMovement::CircularMovement(MachineStatus* status, Factory* factory)
    : MovementCommand(status), m_writer(factory->GetCirculCom()) {}

CircularMovement::~CircularMovement() = default;

void CircularMovement::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                      CommandGroup* group, MachineStatus* status,
                                      Boolean clockwise) {
    InitMovementSyntax(syntax, number, group, status);
    m_writer.reset(factory->GetCirculCom());
    m_clockwise = clockwise;
}

bool CircularMovement::scanWords(char* line) const {
    bool found = scanCoordinates(line);
    for (Parameter* const word : m_centreWords) {
        found |= scanWord(word, line);
    }
    return found;
}

void CircularMovement::InitStatus(char* line) {
    scanWords(line);
    InitActiveCommand();
}

// Relative to the start point or absolute is the centre word's own matter; the movement type does
// not count here. An omitted component equals the start point's.
gmVector3 CircularMovement::resolveCentre() {
    m_hasCentreWord = false;
    gmVector3 centre = status().GetEndPosition();
    for (int axis = 0; axis < 3; ++axis) {
        Parameter* const word = m_centreWords[static_cast<std::size_t>(axis)];
        if (word != nullptr && word->GetNCLineStatus() == TRUE) {
            m_hasCentreWord = true;
            word->ConvertIncremental(centre[axis]);
            centre[axis] = word->GetValue();
            word->SetNCLineStatus(FALSE);
        }
    }
    return centre;
}

int CircularMovement::Compute(char* line) {
    if (GetNCLineStatus() != TRUE && !scanWords(line)) {
        return 0;
    }
    const gmVector3 endPoint = resolveEndPoint();
    // Centre and start rest on the old end position, so they come before the move.
    gmVector3 centre = resolveCentre();
    gmVector3 start = status().GetEndPosition();
    const gmVector3 end = moveTo(endPoint);
    mapping().Scale(start);
    mapping().Scale(centre);
    writeToolAxis(*m_writer);
    m_writer->InitOutput(m_clockwise, start[0], start[1], start[2], end[0], end[1], end[2],
                         centre[0], centre[1], centre[2], m_normal[0], m_normal[1], m_normal[2]);
    SetNCLineStatus(FALSE);
    return 0;
}
