#pragma once

#include "apt/ResCoolant.h"
#include "commands/ModalCommand.h"

#include <memory>

class Factory;

/// The coolant: one instance on, one off.
class Coolant : public ModalCommand {
public:
    explicit Coolant(Factory* factory);
    ~Coolant() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, Boolean on);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    std::unique_ptr<ResCoolant> m_writer;
    Boolean m_on = FALSE;
};
