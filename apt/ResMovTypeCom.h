#pragma once

#include "apt/Result.h"
#include "softCommon/Boolean.h"

/// Writes the result of a movement type command in the output language.
class ResMovTypeCom : public Result {
public:
    using Result::Result;
    ResMovTypeCom(const ResMovTypeCom&) = delete;
    ResMovTypeCom& operator=(const ResMovTypeCom&) = delete;

    /// Writes the incremental mode off when `absolute` is 1, else on. The sense is wanted.
    virtual void InitOutput(Boolean absolute) = 0;
    virtual ~ResMovTypeCom() = default;
};
