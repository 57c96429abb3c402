#include "commands/WordList.h"

#include "commands/Parameter.h"

std::optional<double> WordList::Take(char* line, MachineStatus& status) const {
    const std::optional<AxisValue> value = TakeValue(line, status);
    return value ? std::optional(value->value) : std::nullopt;
}

std::optional<AxisValue> WordList::TakeValue(char* line, MachineStatus& status) const {
    for (Parameter* const word : m_words) {
        if (word->scanNC(line, &status) == 1) {
            word->SetNCLineStatus(FALSE);
            return valueOf(*word);
        }
    }
    return std::nullopt;
}
