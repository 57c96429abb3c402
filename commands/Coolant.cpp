#include "commands/Coolant.h"

#include "apt/Factory.h"

Coolant::Coolant(Factory* factory) : m_writer(factory->GetCoolanCom()) {}

Coolant::~Coolant() = default;

void Coolant::InitInstSyntax(const char* syntax, const int& number, Factory* factory,
                             CommandGroup* group, Boolean on) {
    InitModalSyntax(syntax, number, group);
    m_writer.reset(factory->GetCoolanCom());
    m_on = on;
}

void Coolant::InitStatus(char* /*line*/) {
    m_writer->InitOutput(m_on);
    SetNCLineStatus(FALSE);
    InitActiveCommand();
}

int Coolant::Compute(char* /*line*/) { return 0; }
