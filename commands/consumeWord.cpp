#include "commands/consumeWord.h"

#include "commands/Parameter.h"

std::optional<double> consumeWord(Parameter* word, char* line, MachineStatus* status) {
    if (word == nullptr || word->scanNC(line, status) == 0) {
        return std::nullopt;
    }
    word->SetNCLineStatus(FALSE);
    return word->GetValue();
}
