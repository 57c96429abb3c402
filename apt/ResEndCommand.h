#pragma once

#include "apt/Result.h"

/// Writes the result of a program end command in the output language.
class ResEndCommand : public Result {
public:
    using Result::Result;
    ResEndCommand(const ResEndCommand&) = delete;
    ResEndCommand& operator=(const ResEndCommand&) = delete;

    /// Writes the end of the program.
    virtual void InitOutput() = 0;
    virtual ~ResEndCommand() = default;
};
