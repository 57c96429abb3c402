#include "commands/EndCommand.h"

#include "apt/Factory.h"

EndCommand::~EndCommand() = default;

void EndCommand::InitInstSyntax(const char* syntax, const int& number, Factory* factory) {
    InitNonModalSyntax(syntax, number);
    m_writer.reset(factory->GetEndCom());
}

void EndCommand::InitStatus(char* /*line*/) { m_writer->InitOutput(); }
