#include "commands/MovTypeCom.h"

#include "apt/Factory.h"

MovTypeCom::MovTypeCom(Factory* factory) : WithWriter(factory->GetMovTypCom()) {}

MovTypeCom::~MovTypeCom() = default;

void MovTypeCom::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                                CommandGroup* group, Boolean absolute) {
    InitModalSyntax(syntax, number, group);
    replaceWriter(factory->GetMovTypCom());
    m_absolute = absolute;
}

int MovTypeCom::GetStatus() { return m_absolute; }

int MovTypeCom::Act() {
    writer().InitOutput(m_absolute);
    return 0;
}
