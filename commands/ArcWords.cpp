#include "commands/ArcWords.h"

#include "commands/Control.h"
#include "commands/MachineStatus.h"

ArcWords takeArcWords(char* line, Control& control, MachineStatus& status) {
    ArcWords words;
    for (std::size_t axis = 0; axis < words.centre.size(); ++axis) {
        Parameter* const word = control.words.centres[axis];
        if (word != nullptr && word->scanNC(line, &status) == 1) {
            word->SetNCLineStatus(FALSE);
            words.centre[axis] = {.value = word->GetValue(),
                                  .isIncremental = word->GetIncStatus() == TRUE,
                                  .isMarked = word->IsExplicit()};
        }
    }
    words.radius = control.words.radius.Take(line, status);
    return words;
}
