#pragma once

#include "apt/ResRegularCommand.h"

/// The tool change in APT.
class AResRegularCommand final : public ResRegularCommand {
public:
    using ResRegularCommand::ResRegularCommand;

    void InitOutput(const int& tool) override;
};
