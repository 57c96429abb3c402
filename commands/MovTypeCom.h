#pragma once

#include "apt/ResMovTypeCom.h"
#include "commands/ModalCommand.h"

#include <memory>

class Factory;

/// The movement type: one instance for absolute dimensions (status TRUE), one for incremental
/// dimensions (status FALSE). The movement commands ask the active one for its status.
class MovTypeCom : public ModalCommand {
public:
    explicit MovTypeCom(Factory* factory);
    ~MovTypeCom() override;

    void InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                        CommandGroup* group, Boolean absolute);
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

    /// FALSE means incremental dimensions.
    [[nodiscard]] int GetStatus() override;
    void InitStatus(char* line) override;
    int Compute(char* line) override;

private:
    std::unique_ptr<ResMovTypeCom> m_writer;
    Boolean m_absolute = TRUE;
};
