#pragma once

#include "apt/ResEndCommand.h"

/// The program end in APT.
class AResEndCommand final : public ResEndCommand {
public:
    using ResEndCommand::ResEndCommand;

    void InitOutput() override;
};
