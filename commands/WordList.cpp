#include "commands/WordList.h"

#include "commands/Parameter.h"

std::optional<double> WordList::Take(char* line, MachineStatus& status) const {
    Parameter* const word = TakeWord(line, status);
    return word == nullptr ? std::nullopt : std::optional(word->GetValue());
}

std::optional<AxisValue> WordList::TakeValue(char* line, MachineStatus& status) const {
    Parameter* const word = TakeWord(line, status);
    return word == nullptr ? std::nullopt : std::optional(valueOf(*word));
}

Parameter* WordList::TakeWord(char* line, MachineStatus& status) const {
    for (Parameter* const word : m_words) {
        if (word->scanNC(line, &status) == 1) {
            word->SetNCLineStatus(FALSE);
            return word;
        }
    }
    return nullptr;
}
