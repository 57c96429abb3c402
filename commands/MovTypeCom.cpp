#include "commands/MovTypeCom.h"

#include "apt/Factory.h"

MovTypeCom::MovTypeCom(Factory* factory) : m_writer(factory->GetMovTypCom()) {}

MovTypeCom::~MovTypeCom() = default;

void MovTypeCom::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                CommandGroup* group, Boolean absolute) {
    InitModalSyntax(syntax, number, group);
    m_writer.reset(factory->GetMovTypCom());
    m_absolute = absolute;
}

int MovTypeCom::GetStatus() { return m_absolute; }

void MovTypeCom::InitStatus(char* /*line*/) {
    m_writer->InitOutput(m_absolute);
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int MovTypeCom::Compute(char* /*line*/) { return 0; }
