#include "commands/Coolant.h"

#include "apt/Factory.h"

Coolant::Coolant(Factory* factory) : WithWriter(factory->GetCoolanCom()) {}

Coolant::~Coolant() = default;

void Coolant::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, Boolean on) {
    InitModalSyntax(syntax, number, group);
    replaceWriter(factory->GetCoolanCom());
    m_on = on;
}

int Coolant::Act() {
    writer().InitOutput(m_on);
    return 0;
}
