#include "commands/CircularMovement.h"

#include "apt/Factory.h"
#include "commands/MachineStatus.h"

CircularMovement::CircularMovement(MachineStatus* status, Factory* factory) : PathMovement(status) {
    writer().SetArc(factory->GetCirculCom());
}

CircularMovement::~CircularMovement() = default;

void CircularMovement::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                      CommandGroup* group, MachineStatus* status,
                                      Boolean clockwise) {
    InitMovementSyntax(syntax, number, group, status);
    writer().SetArc(factory->GetCirculCom());
    m_clockwise = clockwise;
}

bool CircularMovement::TakeWords(char* line) {
    bool found = PathMovement::TakeWords(line);
    for (Parameter* const word : m_centreWords) {
        found |= scanWord(word, line);
    }
    return found;
}

void CircularMovement::makeMovement(Movement& movement) {
    movement.rapid = FALSE;
    resolveEndPoint(movement.end);
    Arc& arc = movement.arc.emplace();
    arc.clockwise = m_clockwise;
    arc.normal = m_normal;
    arc.centre = movement.start;
    resolveCentre(arc);
}

// Relative to the start point or absolute is the centre word's own matter; the movement type does
// not count here. An omitted component equals the start point's.
void CircularMovement::resolveCentre(Arc& arc) const {
    for (int axis = 0; axis < 3; ++axis) {
        Parameter* const word = m_centreWords[static_cast<std::size_t>(axis)];
        if (word != nullptr && word->GetNCLineStatus() == TRUE) {
            arc.hasCentreWord = true;
            word->ConvertIncremental(arc.centre[axis]);
            arc.centre[axis] = word->GetValue();
            word->SetNCLineStatus(FALSE);
        }
    }
}
