#include "commands/EndCommand.h"

#include "apt/Factory.h"

EndCommand::~EndCommand() = default;

void EndCommand::InitInstSyntax(const char* syntax, const int& number, Factory* factory) {
    InitNonModalSyntax(syntax, number);
    replaceWriter(factory->GetEndCom());
}

void EndCommand::InitStatus(char* /*line*/) { keepCode(perform()); }

int EndCommand::Act() {
    writer().InitOutput();
    return 0;
}
