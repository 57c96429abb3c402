#include "commands/ControlCommand.h"

ControlCommand::~ControlCommand() = default;

void ControlCommand::InitStatus(char* line) {
    takeWords(line);
    keepCode(perform());
    SetNCLineStatus(FALSE);
}
