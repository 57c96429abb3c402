#include "commands/CoolantMist.h"

#include "apt/Factory.h"

CoolantMist::CoolantMist(CommandGroup* group, Factory* factory)
    : WithWriter(factory->GetCoolanCom()) {
    InitModalSyntax(nullptr, -1, group);
}

CoolantMist::~CoolantMist() = default;

int CoolantMist::Act() {
    writer().WriteMist();
    return 0;
}
