#pragma once

#include "apt/ResEndCommand.h"
#include "commands/NonModalCommand.h"

#include <memory>

class Factory;

/// The end or stop of the program. Writes its statements where its word stands; the scan goes on.
class EndCommand : public NonModalCommand {
public:
    EndCommand() noexcept = default;
    ~EndCommand() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;

private:
    std::unique_ptr<ResEndCommand> m_writer;
};
