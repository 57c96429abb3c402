#include "commands/NonModalCommand.h"

NonModalCommand::~NonModalCommand() = default;

void NonModalCommand::InitNonModalSyntax(const char* syntax, const int& number) noexcept {
    InitSyntax(syntax, number);
}
