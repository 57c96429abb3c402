#include "commands/WordList.h"

#include "commands/Parameter.h"

std::optional<double> WordList::Take(char* line, MachineStatus& status) const {
    for (Parameter* const word : m_words) {
        if (word->scanNC(line, &status) == 1) {
            word->SetNCLineStatus(FALSE);
            return word->GetValue();
        }
    }
    return std::nullopt;
}
