#pragma once

#include "apt/ResCoolant.h"
#include "commands/TechnologyCommand.h"
#include "commands/WithWriter.h"

class Factory;

/// The coolant as mist.
class CoolantMist final : public WithWriter<TechnologyCommand, ResCoolant> {
public:
    explicit CoolantMist(Factory* factory);
    ~CoolantMist() override;

    int Act() override;
};
