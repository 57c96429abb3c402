#pragma once

#include "apt/ResRegularCommand.h"

/// The tool change in APT.
class AResRegularCommand final : public ResRegularCommand {
public:
    AResRegularCommand(std::FILE* output, std::FILE* log,
                       StatementCounts* counts = nullptr) noexcept
        : ResRegularCommand(output, log, counts) {}

    void InitOutput(const int& tool) override;
};
