#include "commands/CircularMovement.h"

#include "apt/Factory.h"
#include "commands/ArcRequest.h"
#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "commands/resolveArc.h"
#include "driver/returnCodes.h"

#include <utility>

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
    Control* const control = status().GetControl();
    if (control == nullptr || !control->computesArcs) {
        for (Parameter* const word : m_centreWords) {
            found |= scanWord(word, line);
        }
        return found;
    }
    m_arcWords = takeArcWords(line, *control, status());
    found |= !m_arcWords.IsEmpty();
    if (control->rotary != nullptr) { // what is a word of the arc is no vector
        found |= control->rotary->TakeVector(line, *control);
    }
    if (found) {
        m_arcWords.turnsBegun = control->words.turnsBegun.Take(line, status());
        m_arcWords.turnsMore = control->words.turnsMore.Take(line, status());
    }
    return found;
}

int CircularMovement::makeMovement(Movement& movement) {
    movement.rapid = FALSE;
    if (const int code = resolveEndPoint(movement.end); code != 0) {
        return code;
    }
    if (Control* const control = status().GetControl();
        control != nullptr && control->computesArcs) {
        movement.arc.reset();
        if (control->hasDwell && control->HasMovementCommand()) {
            return control->Refuse(kArcRefused, "a dwell stands in the block of an arc's code");
        }
        return makeSweep(*control, movement);
    }
    Arc& arc = movement.arc.emplace();
    arc.clockwise = m_clockwise;
    arc.normal = m_normal;
    arc.centre = movement.start;
    resolveCentre(arc);
    return 0;
}

// An arc is round in lengths: a diameter is no coordinate of it.
int CircularMovement::makeSweep(Control& control, Movement& movement) const {
    for (const gmVector3& point : {movement.start, movement.end}) {
        if (const int code = control.CheckKnown(point); code != 0) {
            return code;
        }
    }
    ArcRequest request{
        .start = control.ToLengths(movement.start, Mapping()),
        .end = control.ToLengths(movement.end, Mapping()),
        .plane = control.plane,
        .isClockwise = m_clockwise == TRUE,
        .centre = {},
        .needsWholeCentre = false,
        .radius = m_arcWords.radius,
        .turnsBegun = m_arcWords.turnsBegun,
        .turnsMore = m_arcWords.turnsMore,
        .tolerance = control.Tolerance(),
    };
    for (int axis = 0; axis < 3; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        const auto& word = m_arcWords.centre[index];
        if (!word) {
            continue;
        }
        const bool isAbsolute = word->isMarked
                                    ? !word->isIncremental
                                    : control.centresAreAbsolute.value_or(!word->isIncremental);
        request.needsWholeCentre |= isAbsolute && !word->isMarked;
        gmVector3 offset;
        offset[axis] = word->value;
        // Where a word alone is marked absolute it is a position, which is programmed as the ends
        // are.
        const bool isLength = control.centreIsRadius && !(word->isMarked && isAbsolute);
        const double length = isLength ? word->value : control.ToLengths(offset, Mapping())[axis];
        request.centre[index] = isAbsolute ? length : request.start[axis] + length;
    }
    std::string reason = resolveArc(request, movement.sweep.emplace());
    return reason.empty() ? 0 : control.Refuse(kArcRefused, std::move(reason));
}

// Relative to the start point or absolute is the centre word's own matter, unless a code of the
// program says it for all; the movement type does not count here. An omitted component equals the
// start point's.
void CircularMovement::resolveCentre(Arc& arc) const {
    for (int axis = 0; axis < 3; ++axis) {
        Parameter* const word = m_centreWords[static_cast<std::size_t>(axis)];
        if (word != nullptr && word->GetNCLineStatus() == TRUE) {
            arc.hasCentreWord = true;
            if (const Control* const control = status().GetControl();
                control != nullptr && control->centresAreAbsolute) {
                word->SetIncStatus(*control->centresAreAbsolute ? FALSE : TRUE);
            }
            word->ConvertIncremental(arc.centre[axis]);
            arc.centre[axis] = word->GetValue();
            word->SetNCLineStatus(FALSE);
        }
    }
}
