#pragma once

#include "apt/ResEndCommand.h"
#include "commands/NonModalCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The end or stop of the program. Writes its statements where its word stands; the scan goes on.
class EndCommand : public WithWriter<NonModalCommand, ResEndCommand> {
public:
    EndCommand() noexcept = default;
    ~EndCommand() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory);

    void InitStatus(char* line) override;
    int Act() override;
};
