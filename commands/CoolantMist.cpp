#include "commands/CoolantMist.h"

#include "apt/Factory.h"

CoolantMist::CoolantMist(Factory* factory) : WithWriter(factory->GetCoolanCom()) {}

CoolantMist::~CoolantMist() = default;

int CoolantMist::Act() {
    writer().WriteMist();
    return 0;
}
