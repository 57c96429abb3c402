#pragma once

#include "apt/ResCoolant.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The coolant: one instance on, one off.
class Coolant : public WithWriter<TechnologyCommand, ResCoolant> {
public:
    explicit Coolant(Factory* factory);
    ~Coolant() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, Boolean on);

    int Act() override;

private:
    Boolean m_on = FALSE;
};
