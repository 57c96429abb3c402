#pragma once

#include "apt/ResMovTypeCom.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The movement type: one instance for absolute dimensions (status TRUE), one for incremental
/// dimensions (status FALSE). The movement commands ask the active one for its status.
class MovTypeCom : public WithWriter<TechnologyCommand, ResMovTypeCom> {
public:
    explicit MovTypeCom(Factory* factory);
    ~MovTypeCom() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, Boolean absolute);

    /// FALSE means incremental dimensions.
    [[nodiscard]] int GetStatus() override;
    int Act() override;

private:
    Boolean m_absolute = TRUE;
};
