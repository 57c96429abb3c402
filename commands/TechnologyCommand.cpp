#include "commands/TechnologyCommand.h"

TechnologyCommand::~TechnologyCommand() = default;

void TechnologyCommand::InitStatus(char* line) {
    TakeWords(line);
    keepCode(perform());
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int TechnologyCommand::Compute(char* line) {
    return TakeWords(line) && actsOnWordsAlone() ? perform() : 0;
}
