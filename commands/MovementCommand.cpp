#include "commands/MovementCommand.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"
#include "driver/returnCodes.h"

bool MovementCommand::m_insertTLAXIS = false;
gmVector3 MovementCommand::m_TLAXISdirection(0.0, 0.0, 1.0);

MovementCommand::~MovementCommand() = default;

void MovementCommand::InitMovementSyntax(const char* syntax, const int& number, CommandGroup* group,
                                         MachineStatus* status) noexcept {
    InitModalSyntax(syntax, number, group);
    m_status = status;
}

bool MovementCommand::scanWord(Parameter* word, char* line) const {
    return word != nullptr && word->scanNC(line, m_status) == 1;
}

bool MovementCommand::TakeWords(char* line) {
    bool found = false;
    for (const AxisWords& words : m_axes) {
        found |= scanWord(words.incremental, line);
        found |= scanWord(words.absolute, line);
    }
    if (Control* const control = m_status == nullptr ? nullptr : m_status->GetControl()) {
        found |= control->polar.TakeWords(line, *m_status);
        if (control->rotary != nullptr) {
            found |= control->rotary->TakeWords(line, *m_status);
        }
    }
    return found;
}

int MovementCommand::resolveWith(Control& control, gmVector3& point) const {
    const AxisValues values = takeFound(m_axes);
    if (control.movesInMachine && !canMoveInMachine()) {
        return control.Refuse(kBlockRefused,
                              "only a straight movement can be one in coordinates of the machine");
    }
    unsigned given = 0;
    for (std::size_t axis = 0; axis < values.size(); ++axis) {
        given |= values[axis] && !control.IsIncremental(*values[axis]) ? 1U << axis : 0U;
    }
    m_status->GiveAxes(given);
    return control.ResolvePoint(values, point);
}

bool MovementCommand::isIncrementalMode() const {
    Command* const type = m_status->GetMovTypeCom()->GetActiveCommand();
    return type != nullptr && type->GetStatus() == 0;
}

int MovementCommand::resolveEndPoint(gmVector3& point) const {
    const bool isIncremental = isIncrementalMode();
    const gmVector3 start = m_status->GetEndPosition();
    if (Control* const control = m_status->GetControl();
        control != nullptr && control->ReadsPoints()) {
        point = start;
        return resolveWith(*control, point);
    }
    unsigned given = 0;
    for (int axis = 0; axis < 3; ++axis) {
        double value = start[axis];
        const AxisWords& words = m_axes[static_cast<std::size_t>(axis)];
        // An axis without words has no place that a block could give.
        bool isGiven = words.incremental == nullptr && words.absolute == nullptr;
        // The absolute word comes last and wins; in incremental mode it adds to the other's result.
        for (Parameter* const word : {words.incremental, words.absolute}) {
            if (word == nullptr || word->GetNCLineStatus() != TRUE) {
                continue;
            }
            if (isIncremental) {
                word->SetIncStatus(TRUE);
            }
            isGiven = word->GetIncStatus() != TRUE;
            word->ConvertIncremental(value);
            value = word->GetValue();
            word->SetNCLineStatus(FALSE);
        }
        point[axis] = value;
        given |= isGiven ? 1U << axis : 0U;
    }
    m_status->GiveAxes(given);
    return 0;
}
