#pragma once

#include "apt/ResEndCommand.h"

/// The program end in APT.
class AResEndCommand final : public ResEndCommand {
public:
    AResEndCommand(std::FILE* output, std::FILE* log, StatementCounts* counts = nullptr) noexcept
        : ResEndCommand(output, log, counts) {}

    void InitOutput() override;
};
