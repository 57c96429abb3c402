#pragma once

#include "apt/Result.h"
#include "softCommon/Boolean.h"

/// Writes the result of a coolant command in the output language.
class ResCoolant : public Result {
public:
    using Result::Result;
    ResCoolant(const ResCoolant&) = delete;
    ResCoolant& operator=(const ResCoolant&) = delete;

    /// Writes the coolant on when `on` is 1, else off.
    virtual void InitOutput(Boolean on) = 0;
    virtual ~ResCoolant() = default;
    /// Writes that the coolant comes as mist.
    virtual void WriteMist() { InitOutput(TRUE); }
};
