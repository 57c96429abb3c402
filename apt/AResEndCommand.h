#pragma once

#include "apt/ResEndCommand.h"

/// The program end in APT.
class AResEndCommand final : public ResEndCommand {
public:
    AResEndCommand(std::FILE* output, std::FILE* log) noexcept : ResEndCommand(output, log) {}

    void InitOutput() override;
};
