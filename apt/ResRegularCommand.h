#pragma once

#include "apt/Result.h"

/// Writes the result of a tool change command in the output language.
class ResRegularCommand : public Result {
public:
    using Result::Result;
    ResRegularCommand(const ResRegularCommand&) = delete;
    ResRegularCommand& operator=(const ResRegularCommand&) = delete;

    /// Writes the change to tool number `tool`.
    virtual void InitOutput(const int& tool) = 0;
    virtual ~ResRegularCommand() = default;
};
